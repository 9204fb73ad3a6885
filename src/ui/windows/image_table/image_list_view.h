#pragma once
#include <QListView>
#include <QUrl>
#include <vector>

#include "ui/windows/image_table/image_list_model.h"

namespace quill::ui {

/// The list of the chosen pictures: several can be marked; they are moved by dragging and with Alt+Up and
/// Alt+Down, and removed with Delete. An empty list says how it is filled.
class ImageListView final : public QListView {
  Q_OBJECT
 public:
  /// The model and what reads its thumbnails outlive the view.
  ImageListView(ImageListModel& model, PictureThumbnails& thumbnails, const QString& emptyText);

  /// The marked rows from top to bottom.
  std::vector<int> MarkedRows() const;
  void Mark(int first, int count);

  void MoveMarked(RowStep step);
  void RemoveMarked();

 signals:
  /// Something was dropped from elsewhere, before this row.
  void UrlsDropped(const QList<QUrl>& urls, int before);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  int RowAt(const QPoint& position) const;

  ImageListModel& m_model;
  QString m_emptyText;
};

/// Takes what is dragged from a file manager as a copy, whatever it proposes: files that a program "moves"
/// are deleted by the one that they came from. False when the event is none of that.
bool TakeAsCopy(QDropEvent& event);

}  // namespace quill::ui
