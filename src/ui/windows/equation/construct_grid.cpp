#include "ui/windows/equation/construct_grid.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionButton>
#include <QStyledItemDelegate>
#include <algorithm>

#include "ui/kit/qt_text.h"

namespace quill::ui {
namespace {

constexpr double kGlyphScale = 1.2;
constexpr int kGap = 2;

/// Draws a construct as a button of the desktop's style.
class ButtonPainter final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& item, const QModelIndex& index) const override {
    const QStyle& style = *item.widget->style();
    QStyleOptionButton button;
    button.rect = item.rect.adjusted(kGap, kGap, -kGap, -kGap);
    button.palette = item.palette;
    button.state = QStyle::State_Enabled | QStyle::State_Raised;
    button.state |= item.state & (QStyle::State_MouseOver | QStyle::State_Active);
    const auto* grid = static_cast<const QListWidget*>(item.widget);
    if (grid->hasFocus() && grid->currentIndex() == index) {
      button.state |= QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange | QStyle::State_Selected;
    }
    style.drawControl(QStyle::CE_PushButtonBevel, &button, painter, item.widget);
    painter->save();
    painter->setFont(item.font);
    painter->setLayoutDirection(Qt::LeftToRight);
    style.drawItemText(painter, button.rect, Qt::AlignCenter, button.palette, true, index.data().toString(),
                       QPalette::ButtonText);
    painter->restore();
    if ((button.state & QStyle::State_HasFocus) == 0) return;
    QStyleOptionFocusRect frame;
    frame.QStyleOption::operator=(button);
    frame.rect = button.rect.adjusted(kGap, kGap, -kGap, -kGap);
    style.drawPrimitive(QStyle::PE_FrameFocusRect, &frame, painter, item.widget);
  }
};

}  // namespace

ConstructGrid::ConstructGrid() {
  setLayoutDirection(Qt::LeftToRight);  // as formulas are; mirrored, the arrow keys would go the wrong way
  setFlow(LeftToRight);
  setWrapping(true);
  setResizeMode(Adjust);
  setMovement(Static);
  setUniformItemSizes(true);
  setSelectionMode(NoSelection);
  setTabKeyNavigation(false);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFrameShape(NoFrame);
  viewport()->setAutoFillBackground(false);
  viewport()->setAttribute(Qt::WA_Hover);
  setItemDelegate(new ButtonPainter(this));
  QFont glyphs = font();
  glyphs.setPointSizeF(glyphs.pointSizeF() * kGlyphScale);
  setFont(glyphs);
  connect(this, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
    emit Chosen(m_group.constructs[static_cast<std::size_t>(row(item))]);
  });
}

void ConstructGrid::ShowGroup(const tools::EquationGroup& group) {
  m_group = group;
  clear();
  for (const tools::EquationConstruct& construct : group.constructs) {
    auto* item = new QListWidgetItem(ToQt(construct.glyph), this);
    item->setData(Qt::AccessibleTextRole, ToQt(construct.latex));
    item->setToolTip(ToQt(construct.latex));
  }
  FitCells();
  setCurrentRow(0);
  scrollToTop();
}

void ConstructGrid::FitCells() {
  const int line = fontMetrics().height();
  int widest = line;
  for (int i = 0; i < count(); ++i)
    widest = std::max(widest, fontMetrics().horizontalAdvance(item(i)->text()));
  const QSize cell(widest + line * 4 / 5, line * 2);
  setGridSize(cell);
  for (int i = 0; i < count(); ++i) item(i)->setSizeHint(cell);
}

void ConstructGrid::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  const bool presses = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space;
  // With Control it finishes the window, as everywhere.
  if (!presses || (event->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) {
    return QListWidget::keyPressEvent(event);
  }
  if (currentRow() >= 0) emit Chosen(m_group.constructs[static_cast<std::size_t>(currentRow())]);
}

}  // namespace quill::ui
