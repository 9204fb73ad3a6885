#pragma once
#include <QStyledItemDelegate>

namespace quill::ui {

/// Draws a notebook: its icon, its name, and at the trailing edge what is special about it. One that is gone
/// is subdued.
class NotebookDelegate final : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

}  // namespace quill::ui
