#pragma once
#include <QStyledItemDelegate>

namespace quill::ui {

/// Draws a row of an `ImageListModel`: the thumbnail or a neutral picture, the name, and under it what is
/// known of the file and its folder.
class ImageRowDelegate final : public QStyledItemDelegate {
  Q_OBJECT
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  /// The side of a thumbnail's square in rows of this font.
  static int ThumbnailEdge(const QFontMetrics& font);

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

}  // namespace quill::ui
