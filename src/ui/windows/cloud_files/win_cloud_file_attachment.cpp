#include "ui/windows/cloud_files/win_cloud_file_attachment.h"

#include <QHeaderView>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/kit/elided_label.h"
#include "ui/kit/page_mnemonics.h"
#include "ui/kit/qt_text.h"
#include "ui/kit/wrapped_label.h"

namespace quill::ui {
namespace {

constexpr int kMostRowsAtFirst = 12;

}  // namespace

MWinCloudFileAttachment::MWinCloudFileAttachment(const shell::StringTable& strings,
                                                 const shell::CloudFilesRequest& request, Done done)
    : AnswerWindow(strings, "titleCloudFiles", std::move(done)),
      m_oneDriveFiles(request.files),
      m_tableViewForm(NewTable()),
      m_place(new ElidedLabel) {
  m_place->setObjectName(QStringLiteral("place"));
  m_place->setLayoutDirection(Qt::LeftToRight);
  QLabel* help = NewWrappedLabel(Text("strCloudFilesHelp"));
  m_tableViewForm->setAccessibleName(help->text());
  content().addWidget(help);
  content().addWidget(m_tableViewForm, 1);
  content().addWidget(m_place);
  content().addSpacing(content().spacing());
  SetOkText("strCloudFilesOpen");
  AssignMnemonics(*this, {});
  connect(m_tableViewForm, &QTreeWidget::currentItemChanged, this, &MWinCloudFileAttachment::ShowPlace);
  connect(m_tableViewForm, &QTreeWidget::itemClicked, this, [this] { accept(); });
  m_tableViewForm->setCurrentItem(m_tableViewForm->topLevelItem(0));
  ShowPlace();
  m_tableViewForm->setFocus();
  const int rows = std::min(static_cast<int>(m_oneDriveFiles.size()), kMostRowsAtFirst);
  resize(fontMetrics().averageCharWidth() * 96, fontMetrics().lineSpacing() * (11 + 2 * rows));
}

QTreeWidget* MWinCloudFileAttachment::NewTable() {
  auto* table = new QTreeWidget;
  table->setHeaderLabels(
      {Text("strCloudFilesAccount"), Text("strCloudFilesFolder"), Text("strCloudFilesName")});
  table->setRootIsDecorated(false);
  table->setUniformRowHeights(true);
  table->setAllColumnsShowFocus(true);
  table->setAlternatingRowColors(true);
  table->setTabKeyNavigation(false);
  for (const files::MAOneDriveFile& file : m_oneDriveFiles) {
    auto* row = new QTreeWidgetItem(
        table, {ToQt(file.OneDriveName), ToQt(file.OneNoteUploadsFolder), ToQt(file.FileName)});
    const int height = fontMetrics().lineSpacing() * 3 / 2;
    row->setSizeHint(0, QSize(0, height));
  }
  const int widest = fontMetrics().averageCharWidth() * 42;
  for (int column = 0; column < 2; ++column) {
    table->resizeColumnToContents(column);
    const int wanted = table->columnWidth(column) + fontMetrics().averageCharWidth() * 2;
    table->setColumnWidth(column, std::min(wanted, widest));
  }
  table->header()->setStretchLastSection(true);
  table->header()->setDefaultAlignment(Qt::AlignLeading | Qt::AlignVCenter);
  return table;
}

void MWinCloudFileAttachment::ShowPlace() {
  const int row = m_tableViewForm->indexOfTopLevelItem(m_tableViewForm->currentItem());
  m_place->SetText(row < 0 ? QString() : ToQt(m_oneDriveFiles[static_cast<std::size_t>(row)].FullName));
}

Result<std::size_t, Problem> MWinCloudFileAttachment::Read() {
  const int row = m_tableViewForm->indexOfTopLevelItem(m_tableViewForm->currentItem());
  if (row < 0) return Refuse(m_tableViewForm, "strCloudFilesHelp");
  return static_cast<std::size_t>(row);
}

}  // namespace quill::ui
