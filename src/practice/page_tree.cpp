#include "practice/page_tree.h"
#include "ui/kit/qt_text.h"

#include <QSignalBlocker>
#include <QStyledItemDelegate>

namespace quill::practice {
namespace {

constexpr int kSection = Qt::UserRole;
constexpr int kName = Qt::UserRole + 1;

/// Rows with some air, in the platform's own style (a style sheet would lose its dark colours).
class RoomyRows final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    return QStyledItemDelegate::sizeHint(option, index) + QSize(0, 10);
  }
};

}  // namespace

PageTree::PageTree(const shell::StringTable& strings, QWidget* parent)
    : QTreeWidget(parent), m_strings(strings) {
  setHeaderHidden(true);
  setRootIsDecorated(false);
  setIndentation(14);
  setUniformRowHeights(true);
  setFrameShape(QFrame::NoFrame);
  setItemDelegate(new RoomyRows(this));
  setAccessibleName(ui::ToQt(strings.Text("strPracticePages")));
  connect(this, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
    if (!item || item->data(0, kName).isNull()) return;
    emit Chosen(item->data(0, kSection).toString(), item->data(0, kName).toString());
  });
}

void PageTree::ShowPages(const std::vector<PageEntry>& pages, const PageAddress& open) {
  const QSignalBlocker quiet(this);
  clear();
  QTreeWidgetItem* section = nullptr;
  for (const PageEntry& page : pages) {
    const QString sectionName = ui::ToQt(page.address.section);
    if (!section || section->text(0) != sectionName) {
      section = new QTreeWidgetItem(this, {sectionName});
      section->setData(0, kSection, sectionName);
      section->setFlags(Qt::ItemIsEnabled);
      QFont bold = font();
      bold.setBold(true);
      section->setFont(0, bold);
      section->setExpanded(true);
    }
    const QString title = ui::ToQt(page.title.empty() ? m_strings.Text("strPracticeUntitled") : page.title);
    auto* item = new QTreeWidgetItem(section, {title});
    item->setToolTip(0, title);
    item->setData(0, kSection, sectionName);
    item->setData(0, kName, ui::ToQt(page.address.name));
    if (page.address == open) setCurrentItem(item);
  }
}

std::optional<std::string> PageTree::CurrentSection() const {
  if (!currentItem()) return std::nullopt;
  return currentItem()->data(0, kSection).toString().toStdString();
}

}  // namespace quill::practice
