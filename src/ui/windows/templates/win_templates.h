#pragma once
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "shell/library_requests.h"
#include "ui/kit/latest_job.h"
#include "ui/kit/modal_window.h"
#include "ui/kit/named_rows.h"

class QLabel;

namespace quill::ui {

class FilterList;
class PagePreview;

/// The user's templates, with a preview of the current one. Its command inserts, deletes, imports and
/// exports; the window stays open meanwhile, unless it is left for good or something is inserted.
class MWinTemplates final : public ModalWindow {
  Q_OBJECT

 public:
  /// Takes the next wish, or nothing when the window is closed; called once.
  using Done = std::function<void(std::optional<shell::TemplateWish>)>;

  MWinTemplates(const shell::StringTable& strings, const shell::TemplatesRequest& request);

  /// Shows the templates as they are now, and takes wishes again.
  void Serve(Done done);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  bool TakeAnswer() override;
  void Deliver() override;
  void Lay();
  void AddButtons();
  void LoadArrayTemplates();
  void RowChanged();
  void ShowPreview();
  void Wish(shell::TemplateWish::Kind kind);
  void Give(std::optional<shell::TemplateWish> wish);
  const std::string* Current() const;

  std::filesystem::path m_folder;
  std::function<std::string(std::string_view)> m_fill;
  Done m_done;  ///< null while a wish is carried out
  std::vector<std::string> m_ArrayTemplates;
  std::optional<shell::TemplateWish> m_waiting;  ///< made while another one is carried out
  std::optional<std::string> m_chosen;
  NamedRows m_rows;
  FilterList* m_tableViewForm;
  PagePreview* m_preview;
  QLabel* m_note;
  QPushButton* m_delete = nullptr;
  QPushButton* m_export = nullptr;
  LatestJob m_reading;
};

}  // namespace quill::ui
