#include "ui/windows/packages/notebook_tree.h"

#include <QDateTime>
#include <QHeaderView>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <chrono>

#include "ui/kit/qt_text.h"

namespace quill::ui {
namespace {

enum Column { kName, kChanged, kSize, kSections, kColumns };

constexpr int kWidthInCharacters = 96;
constexpr int kShownRows = 8;
const QChar kNotYet(0x2026);  // …

/// Rows and columns with some air around their texts.
class AiryDelegate final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const int line = option.fontMetrics.height();
    return QStyledItemDelegate::sizeHint(option, index).expandedTo({0, line}) + QSize(line, line / 3);
  }
};

QString SizeText(const QLocale& locale, std::uintmax_t bytes) {
  constexpr std::uintmax_t kMegabyte = 1u << 20;
  return locale.formattedDataSize(static_cast<qint64>(bytes), bytes < kMegabyte ? 0 : 1,
                                  QLocale::DataSizeTraditionalFormat);
}

/// A text with its own direction of reading, whatever that of the window.
QString Isolated(const QString& text) {
  constexpr QChar kFirstStrong(0x2068), kEnd(0x2069);
  return kFirstStrong + text + kEnd;
}

QString ChangeText(const QLocale& locale, const files::NotebookFacts& facts) {
  if (!facts.changed) return {};
  const auto seconds = std::chrono::floor<std::chrono::seconds>(facts.changed->time_since_epoch());
  return locale.toString(QDateTime::fromSecsSinceEpoch(seconds.count()), QLocale::ShortFormat);
}

}  // namespace

NotebookTree::NotebookTree(const shell::StringTable& strings, const std::vector<files::MAFolder>& notebooks)
    : m_strings(strings) {
  setColumnCount(kColumns);
  setItemDelegate(new AiryDelegate(this));
  const char* const titles[] = {"strPackagesName", "strPackagesChanged", "strPackagesSize",
                                "strPackagesSections"};
  for (int column = kName; column < kColumns; ++column)
    headerItem()->setText(column, ToQt(strings.Text(titles[column])));
  for (const int column : {kSize, kSections})
    headerItem()->setTextAlignment(column, Qt::AlignTrailing | Qt::AlignVCenter);
  setRootIsDecorated(false);
  setUniformRowHeights(true);
  setAllColumnsShowFocus(true);
  setAlternatingRowColors(true);
  setTabKeyNavigation(false);
  for (const files::MAFolder& notebook : notebooks) AddRow(notebook);
  setCurrentItem(topLevelItem(0));
  FitColumns();
  connect(this, &QTreeWidget::itemChanged, this, &NotebookTree::ChecksChanged);
  // The space bar flips the box of the current cell: it is always that of the name.
  connect(this, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* now) {
    if (now != nullptr && currentColumn() != kName) setCurrentItem(now, kName);
  });
  connect(this, &QTreeWidget::itemClicked, this,
          [this](QTreeWidgetItem* item) { setCurrentItem(item, kName); });
}

void NotebookTree::AddRow(const files::MAFolder& notebook) {
  auto* item = new QTreeWidgetItem(this);
  // A line break in a folder's name would make its row higher than the others.
  item->setText(kName, ToQt(notebook.name).replace(u'\n', u' '));
  item->setToolTip(kName,
                   QStringLiteral("<span>%1</span>").arg(ToQt(notebook.path.string()).toHtmlEscaped()));
  item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable |
                 Qt::ItemNeverHasChildren);
  item->setCheckState(kName, notebook.checked ? Qt::Checked : Qt::Unchecked);
  for (const int column : {kSize, kSections, kChanged}) item->setText(column, kNotYet);
  for (const int column : {kSize, kSections})
    item->setTextAlignment(column, Qt::AlignTrailing | Qt::AlignVCenter);
}

void NotebookTree::FitColumns() {
  header()->setStretchLastSection(false);
  header()->setSectionsMovable(false);
  header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  header()->setSectionResizeMode(kName, QHeaderView::Stretch);
  const int row = sizeHintForRow(0);
  setMinimumSize(fontMetrics().averageCharWidth() * kWidthInCharacters,
                 row * kShownRows + header()->sizeHint().height());
}

void NotebookTree::SetFacts(std::size_t row, const files::NotebookFacts& facts) {
  QTreeWidgetItem* item = topLevelItem(static_cast<int>(row));
  const QSignalBlocker noCheckChanged(this);
  item->setText(kSize, Isolated(SizeText(locale(), facts.bytes)));
  item->setText(kSections, locale().toString(static_cast<qulonglong>(facts.sections)));
  item->setText(kChanged, Isolated(ChangeText(locale(), facts)));
  viewport()->update();
  if (facts.unreadable == 0) return;
  const QString count = locale().toString(static_cast<qulonglong>(facts.unreadable));
  const QString warning = ToQt(m_strings.Format("strPackagesUnreadable", {FromQt(count)}));
  item->setIcon(kSections, style()->standardIcon(QStyle::SP_MessageBoxWarning));
  item->setToolTip(kSections, warning);
  item->setData(kSections, Qt::AccessibleDescriptionRole, warning);
}

bool NotebookTree::IsChecked(std::size_t row) const {
  return topLevelItem(static_cast<int>(row))->checkState(kName) == Qt::Checked;
}

void NotebookTree::CheckAllItems(CheckMode mode) {
  {
    const QSignalBlocker once(this);
    for (int row = 0; row < topLevelItemCount(); ++row) {
      const bool wasChecked = IsChecked(static_cast<std::size_t>(row));
      const bool isChecked = mode == CheckMode::Invert ? !wasChecked : mode == CheckMode::All;
      topLevelItem(row)->setCheckState(kName, isChecked ? Qt::Checked : Qt::Unchecked);
    }
  }
  viewport()->update();
  emit ChecksChanged();
}

}  // namespace quill::ui
