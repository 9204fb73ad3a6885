#include "ui/windows/backup/backup_list.h"

#include <QDate>
#include <QHeaderView>
#include <QLocale>
#include <algorithm>

#include "ui/kit/qt_text.h"

namespace quill::ui {
namespace {

enum Column { kDay, kAge, kSize, kNotebooks, kSections, kState };

constexpr int kShownRows = 6;
constexpr Qt::Alignment kNumber = Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter;

QDate DateOf(std::chrono::year_month_day day) {
  return {static_cast<int>(day.year()), static_cast<int>(static_cast<unsigned>(day.month())),
          static_cast<int>(static_cast<unsigned>(day.day()))};
}

}  // namespace

BackupList::BackupList(const shell::StringTable& strings) : m_strings(strings) {
  const auto text = [&](std::string_view key) { return ToQt(strings.Text(key)); };
  setHeaderLabels({text("strBackupDay"), text("strBackupAge"), text("strBackupSize"),
                   text("strBackupNotebooks"), text("strBackupSections"), text("strBackupState")});
  setRootIsDecorated(false);
  setUniformRowHeights(true);
  setAllColumnsShowFocus(true);
  setAlternatingRowColors(true);
  setTabKeyNavigation(false);
  header()->setSectionsMovable(false);
  header()->setStretchLastSection(true);
  for (const int column : {kSize, kNotebooks, kSections}) headerItem()->setTextAlignment(column, kNumber);
  setMinimumHeight(header()->sizeHint().height() + RowHeight() * kShownRows);
}

void BackupList::SetBackups(std::vector<files::Backup> backups, std::chrono::year_month_day today) {
  clear();
  m_backups = std::move(backups);
  std::ranges::sort(m_backups, std::ranges::greater(), &files::Backup::day);
  for (const files::Backup& backup : m_backups) {
    auto* item = new QTreeWidgetItem(this);
    item->setText(kDay, locale().toString(DateOf(backup.day), QLocale::LongFormat));
    item->setText(kAge, Age(backup.day, today));
    item->setText(kState, ToQt(m_strings.Text(backup.isWhole ? "strBackupComplete" : "strBackupIncomplete")));
    for (const int column : {kSize, kNotebooks, kSections}) {
      item->setText(column, QStringLiteral("…"));
      item->setTextAlignment(column, kNumber);
    }
    item->setSizeHint(kDay, {0, RowHeight()});
  }
  setCurrentItem(topLevelItem(0));
  FitColumns();
}

int BackupList::RowHeight() const {
  return fontMetrics().lineSpacing() * 3 / 2;
}

/// As wide as what is in them, with room between; the window grows when that is not enough.
void BackupList::FitColumns() {
  int total = 2 * frameWidth() + style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  for (int column = 0; column < columnCount(); ++column) {
    int width = header()->sectionSizeHint(column);
    for (int row = 0; row < topLevelItemCount(); ++row)
      width = std::max(width, fontMetrics().horizontalAdvance(topLevelItem(row)->text(column)));
    setColumnWidth(column, width + fontMetrics().averageCharWidth() * 3);
    total += columnWidth(column);
  }
  setMinimumWidth(total);
}

QString BackupList::Age(std::chrono::year_month_day day, std::chrono::year_month_day today) const {
  const auto days = (std::chrono::sys_days(today) - std::chrono::sys_days(day)).count();
  if (days == 0) return ToQt(m_strings.Text("strBackupToday"));
  if (days == 1) return ToQt(m_strings.Text("strBackupYesterday"));
  // The clock was set back, or somebody has named a folder so.
  if (days < 0) return {};
  return ToQt(
      m_strings.Format("strBackupDaysAgo", {FromQt(locale().toString(static_cast<qlonglong>(days)))}));
}

void BackupList::SetContents(int row, const files::BackupContents& contents) {
  QTreeWidgetItem* item = topLevelItem(row);
  item->setText(kSize, locale().formattedDataSize(static_cast<qint64>(contents.bytes), 1,
                                                  QLocale::DataSizeTraditionalFormat));
  item->setText(kNotebooks, locale().toString(static_cast<qulonglong>(contents.notebooks)));
  item->setText(kSections, locale().toString(static_cast<qulonglong>(contents.sections)));
  FitColumns();
}

}  // namespace quill::ui
