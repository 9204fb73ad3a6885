#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "shell/content_requests.h"
#include "ui/kit/modal_window.h"

class QPushButton;

namespace quill::ui {

class QuietNote;
class ExactTextEdit;

/// Shows a recognised text to be edited, tidied and copied. Everything can be undone. The text keeps its
/// carriage returns: tidying and copying need them. Closing it in any way is the same.
class MWinImageOCRText final : public AnswerWindow<std::monostate> {
  Q_OBJECT
 public:
  MWinImageOCRText(const shell::StringTable& strings, const shell::ImageTextRequest& request, Done done);

 private:
  using Tidy = std::string (*)(std::string_view);

  Result<std::monostate, Problem> Read() override;
  QPushButton* NewTidyButton(std::string_view key, Tidy tidy);
  void Copy();
  void TextChanged();

  ExactTextEdit* m_text;
  QuietNote* m_note;
  std::vector<QPushButton*> m_needText;
};

}  // namespace quill::ui
