#pragma once
#include <vector>

#include "shell/link_requests.h"
#include "ui/kit/modal_window.h"

class QTreeWidget;

namespace quill::ui {

class ElidedLabel;

/// Asks which of several local copies of an attachment is opened: a click on a row is the answer, and so is
/// Return.
class MWinCloudFileAttachment final : public AnswerWindow<std::size_t> {
 public:
  MWinCloudFileAttachment(const shell::StringTable& strings, const shell::CloudFilesRequest& request,
                          Done done);

 private:
  Result<std::size_t, Problem> Read() override;
  QTreeWidget* NewTable();
  /// Shows where the file of the current row is, since rows may look the same.
  void ShowPlace();

  std::vector<files::MAOneDriveFile> m_oneDriveFiles;
  QTreeWidget* m_tableViewForm;
  ElidedLabel* m_place;
};

}  // namespace quill::ui
