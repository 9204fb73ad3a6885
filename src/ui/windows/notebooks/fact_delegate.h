#pragma once
#include <QStyledItemDelegate>

namespace quill::ui {

/// Draws a cell of a two-column list whose values may be long: in as many lines as they need, broken anywhere
/// where they have no blanks, links as such. The view must be a QTreeView.
class FactDelegate final : public QStyledItemDelegate {
  Q_OBJECT

 public:
  enum Role { LinkRole = Qt::UserRole };  ///< whether the text is a link

  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

}  // namespace quill::ui
