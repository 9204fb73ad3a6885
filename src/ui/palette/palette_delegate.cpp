#include "ui/palette/palette_delegate.h"

#include <QApplication>
#include <QPainter>
#include <QTextLayout>
#include <vector>

#include "shell/action_search.h"
#include "ui/palette/palette_model.h"

namespace quill::ui {
namespace {

/// A colour between two: 0 is `from`, 100 is `to`.
QColor Between(const QColor& from, const QColor& to, int percent) {
  const auto mix = [percent](int a, int b) { return a + (b - a) * percent / 100; };
  return QColor(mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue()));
}

struct RowColors {
  QColor text, subdued, grey;
};

/// Readable on the row's background, selected or not.
RowColors ColorsOf(const QStyleOptionViewItem& option) {
  const bool isSelected = option.state.testFlag(QStyle::State_Selected);
  const auto color = [&](QPalette::ColorRole role) { return option.palette.color(QPalette::Active, role); };
  const QColor text = color(isSelected ? QPalette::HighlightedText : QPalette::Text);
  const QColor behind = color(isSelected ? QPalette::Highlight : QPalette::Base);
  return {text, Between(text, behind, isSelected ? 15 : 40), Between(text, behind, isSelected ? 30 : 50)};
}

QVector<QTextLayout::FormatRange> Bold(const std::vector<shell::TextRange>& ranges, qsizetype length) {
  QVector<QTextLayout::FormatRange> formats;
  for (const shell::TextRange& range : ranges) {
    const auto begin = static_cast<int>(range.begin);
    QTextLayout::FormatRange format{begin, static_cast<int>(range.length), {}};
    if (begin >= length) break;
    format.format.setFontWeight(QFont::Bold);
    formats.append(format);
  }
  return formats;
}

/// Paints from one edge of a row to the other; mirrors itself in a right-to-left layout.
class RowPainter {
 public:
  RowPainter(QPainter& painter, const QStyleOptionViewItem& option, const QRect& room)
      : m_painter(painter),
        m_option(option),
        m_room(room),
        m_left(room),
        m_gap(option.fontMetrics.height() * 3 / 4) {}

  void AtTrailingEdge(const QString& text, const QColor& color) {
    if (text.isEmpty()) return;
    // One more than the metrics say: they round, and a shortcut without its letter is none.
    const int width = std::min(m_option.fontMetrics.horizontalAdvance(text) + 1, m_left.width() / 2);
    QRect place = m_left;
    place.setLeft(m_left.right() - width + 1);
    Draw(place, text, color);
    m_left.setRight(place.left() - m_gap);
  }

  /// Bold where `ranges` say; shortened when there is no room.
  void Title(const QString& title, const std::vector<shell::TextRange>& ranges, const QColor& color) {
    QTextLayout layout(title, m_option.font);
    Lay(layout, title, ranges);
    if (layout.boundingRect().width() > m_left.width()) {
      // Bold letters are wider than what the metrics of the plain font say.
      const int room = m_left.width() - static_cast<int>(layout.boundingRect().width() / 12);
      const QString shortened = m_option.fontMetrics.elidedText(title, Qt::ElideRight, std::max(room, 0));
      Lay(layout, shortened, ranges);
    }
    QRect place = m_left;
    place.setWidth(static_cast<int>(layout.boundingRect().width() + 1));
    m_painter.setPen(color);
    const QRect visual = QStyle::visualRect(m_option.direction, m_room, place);
    layout.draw(&m_painter, QPointF(visual.left(),
                                    visual.top() + (visual.height() - layout.boundingRect().height()) / 2));
    m_left.setLeft(place.right() + 1 + m_gap);
  }

  void Rest(const QString& text, const QColor& color) {
    if (m_left.width() > m_gap) Draw(m_left, text, color);
  }

 private:
  static void Lay(QTextLayout& layout, const QString& text, const std::vector<shell::TextRange>& ranges) {
    layout.setText(text);
    layout.setFormats(Bold(ranges, text.size()));
    layout.beginLayout();
    QTextLine line = layout.createLine();
    if (line.isValid()) line.setNumColumns(static_cast<int>(text.size()));
    layout.endLayout();
  }

  void Draw(const QRect& place, const QString& text, const QColor& color) {
    m_painter.setPen(color);
    const QRect visual = QStyle::visualRect(m_option.direction, m_room, place);
    const auto alignment = QStyle::visualAlignment(m_option.direction, Qt::AlignLeading | Qt::AlignVCenter);
    m_painter.drawText(visual, static_cast<int>(alignment) | Qt::TextSingleLine | Qt::TextDontClip,
                       m_option.fontMetrics.elidedText(text, Qt::ElideRight, place.width()));
  }

  QPainter& m_painter;
  const QStyleOptionViewItem& m_option;
  QRect m_room;
  QRect m_left;  ///< what is still free, as in a left-to-right layout
  int m_gap;
};

int Margin(const QStyleOptionViewItem& option) {
  return option.fontMetrics.height() / 2;
}

}  // namespace

void PaletteDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const {
  QStyleOptionViewItem item(option);
  initStyleOption(&item, index);
  item.text.clear();
  // The keyboard is in the field, but it moves in this list: its current row looks like one that has the
  // focus.
  item.state |= QStyle::State_Active;
  item.state &= ~QStyle::State_HasFocus;
  const QStyle* style = item.widget != nullptr ? item.widget->style() : QApplication::style();
  style->drawControl(QStyle::CE_ItemViewItem, &item, painter, item.widget);

  const RowColors colors = ColorsOf(item);
  const QString problem = index.data(PaletteModel::kProblem).toString();
  const auto ranges = index.data(PaletteModel::kRanges).value<std::vector<shell::TextRange>>();
  painter->save();
  painter->setFont(item.font);
  RowPainter row(*painter, item, item.rect.adjusted(Margin(item), 0, -Margin(item), 0));
  row.AtTrailingEdge(index.data(PaletteModel::kShortcut).toString(),
                     problem.isEmpty() ? colors.subdued : colors.grey);
  row.Title(index.data(Qt::DisplayRole).toString(), ranges, problem.isEmpty() ? colors.text : colors.grey);
  row.Rest(problem.isEmpty() ? index.data(PaletteModel::kGroup).toString() : problem, colors.subdued);
  painter->restore();
}

QSize PaletteDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
  return QSize(option.fontMetrics.averageCharWidth() * 30, option.fontMetrics.height() + Margin(option));
}

}  // namespace quill::ui
