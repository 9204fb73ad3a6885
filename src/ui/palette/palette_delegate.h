#pragma once
#include <QStyledItemDelegate>

namespace quill::ui {

/// Paints a row of the palette: the title with the matched characters in bold, then the group in a subdued
/// colour, the shortcut at the trailing edge. An action that cannot run now is grey, with the reason where
/// the group would stand.
class PaletteDelegate final : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

}  // namespace quill::ui
