#pragma once
#include <QPainter>
#include <QPalette>
#include <QStyleOptionViewItem>

namespace quill::ui {

/// A colour between two: 0 is `from`, 100 is `to`.
QColor ColorBetween(const QColor& from, const QColor& to, int percent);

/// The colours of a list's row, as they are readable on its ground, selected or not.
struct RowInk {
  QColor text, ground, accent;
  bool isSelected = false;

  /// So many percent of the way from the text to the ground; less on a selected row, whose colours are closer
  /// to each other.
  QColor Faded(int percent) const;
};

RowInk InkOf(const QStyleOptionViewItem& row);

/// Paints a row's ground and takes its text and icon out of the option, to be painted by hand.
void PaintRowGround(QPainter& painter, QStyleOptionViewItem& row);

/// Where a part of a row that was measured from left to right stands in the layout's direction.
QRect PartOfRow(const QStyleOptionViewItem& row, const QRect& part);

/// Paints one line at the leading edge of such a part with the painter's font and pen; what does not fit is
/// left out at its end. A text that is read the other way stands there, too.
void PaintRowText(QPainter& painter, const QStyleOptionViewItem& row, const QRect& part, const QString& text);

}  // namespace quill::ui
