#include "ui/windows/notebooks/notebook_delegate.h"

#include <QIcon>
#include <algorithm>

#include "ui/kit/list_row.h"
#include "ui/windows/notebooks/notebook_model.h"

namespace quill::ui {
namespace {

constexpr int kFaded =
    35;  // percent; what is written so still has four and a half times the ground's contrast

int Margin(const QStyleOptionViewItem& row) {
  return row.fontMetrics.height() / 2;
}

}  // namespace

void NotebookDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
  QStyleOptionViewItem row(option);
  initStyleOption(&row, index);
  PaintRowGround(*painter, row);
  const RowInk ink = InkOf(row);
  const int margin = Margin(row);
  const QString note = index.data(NotebookModel::NoteRole).toString();
  QRect left = row.rect.adjusted(margin, 0, -margin, 0);

  painter->save();
  painter->setFont(row.font);
  QRect icon(left.topLeft(), row.decorationSize);
  icon.moveTop(left.center().y() - icon.height() / 2);
  index.data(Qt::DecorationRole).value<QIcon>().paint(painter, PartOfRow(row, icon));
  left.setLeft(icon.right() + 1 + margin);
  if (!note.isEmpty()) {
    QRect place = left;
    const int width = row.fontMetrics.horizontalAdvance(note) + 1;
    place.setLeft(left.right() + 1 - std::min(width, left.width() / 2));
    painter->setPen(ink.Faded(kFaded));
    PaintRowText(*painter, row, place, note);
    left.setRight(place.left() - margin);
  }
  painter->setPen(ink.text);
  PaintRowText(*painter, row, left, index.data(Qt::DisplayRole).toString());
  painter->restore();
}

QSize NotebookDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
  const int line = std::max(option.fontMetrics.height(), option.decorationSize.height());
  return {option.fontMetrics.averageCharWidth() * 24, line + option.fontMetrics.height() / 2};
}

}  // namespace quill::ui
