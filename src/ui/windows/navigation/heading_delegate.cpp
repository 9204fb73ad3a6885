#include "ui/windows/navigation/heading_delegate.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QToolTip>
#include <algorithm>

#include "ui/kit/list_row.h"
#include "ui/windows/navigation/heading_model.h"

namespace quill::ui {
namespace {

/// How a level differs from the list's own font and colour.
struct Look {
  double size;
  QFont::Weight weight;
  int accent;  ///< so many percent of the way from the text's colour to that of links
  int faded;   ///< the same to the ground; counts for what has no accent
};

constexpr Look kLooks[] = {{1.2, QFont::Bold, 0, 0},    {1.1, QFont::Bold, 60, 0},
                           {1.0, QFont::Bold, 0, 15},   {1.0, QFont::Normal, 60, 0},
                           {1.0, QFont::Normal, 0, 10}, {0.92, QFont::Normal, 0, 35}};

const Look& LookOf(int level) {
  return kLooks[std::clamp(level, 1, 6) - 1];
}

QFont FontOf(const QFont& list, const Look& look) {
  QFont font = list;
  if (font.pointSizeF() > 0) {
    font.setPointSizeF(font.pointSizeF() * look.size);
  } else {
    font.setPixelSize(static_cast<int>(font.pixelSize() * look.size));
  }
  font.setWeight(look.weight);
  return font;
}

int Margin(const QStyleOptionViewItem& row) {
  return row.fontMetrics.height() / 2;
}

/// As in a left-to-right layout.
QRect TextPart(const QStyleOptionViewItem& row, int level) {
  const int step = row.fontMetrics.averageCharWidth() * 2;
  return row.rect.adjusted(Margin(row) + step * (level - 1), 0, -Margin(row), 0);
}

}  // namespace

void HeadingDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const {
  QStyleOptionViewItem row(option);
  initStyleOption(&row, index);
  PaintRowGround(*painter, row);
  const int level = index.data(HeadingModel::LevelRole).toInt();
  const Look& look = LookOf(level);
  const RowInk ink = InkOf(row);
  painter->save();
  if (index.data(HeadingModel::OpenedRole).toBool()) {
    QRect bar = row.rect.adjusted(1, 2, 0, -2);
    bar.setWidth(std::max(3, row.fontMetrics.height() / 5));
    painter->fillRect(PartOfRow(row, bar),
                      ink.isSelected ? ink.text : row.palette.color(QPalette::Active, QPalette::Highlight));
  }
  painter->setFont(FontOf(row.font, look));
  painter->setPen(look.accent > 0 ? ColorBetween(ink.text, ink.accent, look.accent) : ink.Faded(look.faded));
  PaintRowText(*painter, row, TextPart(row, level), index.data(Qt::DisplayRole).toString());
  painter->restore();
}

QSize HeadingDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
  const int line = QFontMetrics(FontOf(option.font, LookOf(1))).height();
  return {option.fontMetrics.averageCharWidth() * 16, line + option.fontMetrics.height() * 2 / 5};
}

bool HeadingDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                const QStyleOptionViewItem& option, const QModelIndex& index) {
  if (event->type() != QEvent::ToolTip || !index.isValid()) {
    return QStyledItemDelegate::helpEvent(event, view, option, index);
  }
  QStyleOptionViewItem row(option);
  initStyleOption(&row, index);
  const int level = index.data(HeadingModel::LevelRole).toInt();
  const QString text = index.data(Qt::DisplayRole).toString();
  const QFontMetrics metrics(FontOf(row.font, LookOf(level)));
  const bool isWhole = metrics.horizontalAdvance(text) <= TextPart(row, level).width();
  // The tags keep a heading from being taken for rich text of its own, and break a long one into lines.
  QToolTip::showText(event->globalPos(),
                     isWhole ? QString() : QStringLiteral("<p>%1</p>").arg(text.toHtmlEscaped()), view);
  return true;
}

}  // namespace quill::ui
