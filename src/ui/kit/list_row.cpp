#include "ui/kit/list_row.h"

#include <QApplication>
#include <QStyle>

namespace quill::ui {

QColor ColorBetween(const QColor& from, const QColor& to, int percent) {
  const auto mix = [percent](int a, int b) { return a + (b - a) * percent / 100; };
  return {mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue())};
}

QColor RowInk::Faded(int percent) const {
  return ColorBetween(text, ground, isSelected ? percent / 3 : percent);
}

RowInk InkOf(const QStyleOptionViewItem& row) {
  const auto group = row.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
  const auto color = [&](QPalette::ColorRole role) { return row.palette.color(group, role); };
  if (row.state.testFlag(QStyle::State_Selected)) {
    return {color(QPalette::HighlightedText), color(QPalette::Highlight), color(QPalette::HighlightedText),
            true};
  }
  return {color(QPalette::Text), color(QPalette::Base), color(QPalette::Link), false};
}

void PaintRowGround(QPainter& painter, QStyleOptionViewItem& row) {
  row.text.clear();
  row.icon = {};
  row.features &= ~QStyleOptionViewItem::HasDecoration;
  const QStyle* style = row.widget != nullptr ? row.widget->style() : QApplication::style();
  style->drawControl(QStyle::CE_ItemViewItem, &row, &painter, row.widget);
}

QRect PartOfRow(const QStyleOptionViewItem& row, const QRect& part) {
  return QStyle::visualRect(row.direction, row.rect, part);
}

void PaintRowText(QPainter& painter, const QStyleOptionViewItem& row, const QRect& part,
                  const QString& text) {
  const Qt::Alignment leading =
      QStyle::visualAlignment(row.direction, Qt::AlignLeft | Qt::AlignVCenter) | Qt::AlignAbsolute;
  // The text's own direction, which is not that of the layout: otherwise its brackets and dots move.
  painter.setLayoutDirection(text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
  painter.drawText(PartOfRow(row, part), static_cast<int>(leading) | Qt::TextSingleLine,
                   painter.fontMetrics().elidedText(text, Qt::ElideRight, part.width()));
}

}  // namespace quill::ui
