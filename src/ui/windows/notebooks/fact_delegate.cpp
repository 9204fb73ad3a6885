#include "ui/windows/notebooks/fact_delegate.h"

#include <QTextLayout>
#include <QTreeView>
#include <algorithm>
#include <cmath>

#include "ui/kit/list_row.h"

namespace quill::ui {
namespace {

constexpr int kMostLines = 20;  // what is longer can be copied

int Margin(const QStyleOptionViewItem& cell) {
  return cell.fontMetrics.height() / 3;
}

/// Lays the text out in a width and returns its height.
double Lay(QTextLayout& layout, const QStyleOptionViewItem& cell, int width) {
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  option.setTextDirection(layout.text().isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
  option.setAlignment(QStyle::visualAlignment(cell.direction, Qt::AlignLeft | Qt::AlignTop) |
                      Qt::AlignAbsolute);
  layout.setTextOption(option);
  layout.setFont(cell.font);
  double height = 0;
  layout.beginLayout();
  for (int lines = 0; lines < kMostLines; ++lines) {
    QTextLine line = layout.createLine();
    if (!line.isValid()) break;
    line.setLineWidth(std::max(width, 1));
    line.setPosition(QPointF(0, height));
    height += line.height();
  }
  layout.endLayout();
  return height;
}

}  // namespace

void FactDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
  QStyleOptionViewItem cell(option);
  initStyleOption(&cell, index);
  const bool isLink = index.data(LinkRole).toBool();
  PaintRowGround(*painter, cell);
  const RowInk ink = InkOf(cell);
  if (isLink) cell.font.setUnderline(true);
  const int margin = Margin(cell);
  const QRect room = cell.rect.adjusted(margin, margin, -margin, -margin);
  QTextLayout layout(index.data().toString());
  Lay(layout, cell, room.width());
  painter->save();
  painter->setClipRect(cell.rect);
  painter->setPen(isLink ? ink.accent : index.column() == 0 ? ink.Faded(30) : ink.text);
  layout.draw(painter, room.topLeft());
  painter->restore();
}

QSize FactDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  QStyleOptionViewItem cell(option);
  initStyleOption(&cell, index);
  const int margin = Margin(cell);
  const int wanted = cell.fontMetrics.horizontalAdvance(cell.text) + 2 * margin + 2;
  const auto* view = qobject_cast<const QTreeView*>(option.widget);
  if (index.column() == 0 || view == nullptr) return {wanted, cell.fontMetrics.height() + 2 * margin};
  QTextLayout layout(index.data().toString());
  const double height = Lay(layout, cell, view->columnWidth(index.column()) - 2 * margin);
  return {wanted, static_cast<int>(std::ceil(height)) + 2 * margin};
}

}  // namespace quill::ui
