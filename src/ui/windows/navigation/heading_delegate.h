#pragma once
#include <QStyledItemDelegate>

namespace quill::ui {

/// Draws a heading: each level is set in further and has a weight, a size and a colour of its own; the one
/// that was opened last has a bar at the leading edge. All rows are of one height. A text that is cut off is
/// told whole by its tool tip.
class HeadingDelegate final : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;
};

}  // namespace quill::ui
