#pragma once
#include "shell/link_requests.h"
#include "ui/kit/file_panels.h"
#include "ui/kit/modal_window.h"

class QFormLayout;
class QLineEdit;

namespace quill::ui {

class LinkPreview;

/// Asks for text and path of a variable link. The path is typed, or put there by choosing a file or folder,
/// and its meaning on this machine is shown while one types. Neither may be empty.
class MWinVarLink final : public AnswerWindow<files::LinkFields> {
 public:
  /// `panels` outlives the window.
  MWinVarLink(const shell::StringTable& strings, PanelMemory& panels, const shell::VarLinkRequest& request,
              Done done);

  /// Puts the path of a chosen file or folder into the link field, and its name into an empty text field.
  void TakePath(const std::filesystem::path& path);

 private:
  Result<files::LinkFields, Problem> Read() override;
  QLayout* NewButtons();
  void AddNote();
  void ButtonSelectFileClick(platform::OpenKind kind);

  const shell::StringTable& m_texts;
  PanelMemory& m_panels;
  files::VariableRoots m_roots;
  QLineEdit* m_displayText;
  QLineEdit* m_tfLink;
  LinkPreview* m_preview;
};

}  // namespace quill::ui
