#include "ui/windows/image_table/image_list_view.h"

#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

#include "ui/windows/image_table/image_row_delegate.h"
#include "ui/windows/image_table/picture_thumbnails.h"

namespace quill::ui {

bool TakeAsCopy(QDropEvent& event) {
  if (!event.mimeData()->hasUrls() || !event.possibleActions().testFlag(Qt::CopyAction)) return false;
  event.setDropAction(Qt::CopyAction);
  event.accept();
  return true;
}

ImageListView::ImageListView(ImageListModel& model, PictureThumbnails& thumbnails, const QString& emptyText)
    : m_model(model), m_emptyText(emptyText) {
  setModel(&model);
  setItemDelegate(new ImageRowDelegate(this));
  setUniformItemSizes(true);
  setSelectionMode(ExtendedSelection);
  setEditTriggers(NoEditTriggers);
  setVerticalScrollMode(ScrollPerPixel);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setDragDropMode(DragDrop);
  setDefaultDropAction(Qt::MoveAction);
  setAccessibleDescription(emptyText);
  connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this, &thumbnails] {
    thumbnails.ForgetWaiting();
    viewport()->update();  // asks anew for all that is seen now
  });
}

std::vector<int> ImageListView::MarkedRows() const {
  std::vector<int> rows;
  for (const QItemSelectionRange& range : selectionModel()->selection()) {
    for (int row = range.top(); row <= range.bottom(); ++row) rows.push_back(row);
  }
  std::ranges::sort(rows);
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
  return rows;
}

void ImageListView::Mark(int first, int count) {
  if (count <= 0) return;
  const QModelIndex from = m_model.index(first), to = m_model.index(first + count - 1);
  selectionModel()->setCurrentIndex(from, QItemSelectionModel::NoUpdate);
  selectionModel()->select(QItemSelection(from, to), QItemSelectionModel::ClearAndSelect);
  scrollTo(to);
  scrollTo(from);
}

void ImageListView::MoveMarked(RowStep step) {
  m_model.Arrange(RowsShifted(m_model.rowCount(), MarkedRows(), step));
  scrollTo(currentIndex());
}

void ImageListView::RemoveMarked() {
  const std::vector<int> rows = MarkedRows();
  if (rows.empty()) return;
  // The next one that stays is marked first: at no time is nothing marked, which would grey buttons.
  int next = rows.front();
  for (const int row : rows) next += row == next ? 1 : 0;
  if (next == m_model.rowCount()) next = rows.front() - 1;
  if (next >= 0) Mark(next, 1);
  m_model.Remove(rows);
}

void ImageListView::keyPressEvent(QKeyEvent* event) {
  const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
  const bool isUp = event->key() == Qt::Key_Up;
  if (modifiers == Qt::AltModifier && (isUp || event->key() == Qt::Key_Down)) {
    MoveMarked(isUp ? RowStep::Up : RowStep::Down);
  } else if (modifiers == Qt::NoModifier &&
             (event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace)) {
    RemoveMarked();
  } else {
    QListView::keyPressEvent(event);
  }
}

void ImageListView::paintEvent(QPaintEvent* event) {
  QListView::paintEvent(event);
  if (m_model.rowCount() > 0) return;
  QPainter painter(viewport());
  painter.setPen(palette().color(QPalette::PlaceholderText));
  const int margin = fontMetrics().lineSpacing();
  painter.drawText(viewport()->rect().adjusted(margin, margin, -margin, -margin),
                   Qt::AlignCenter | Qt::TextWordWrap, m_emptyText);
}

int ImageListView::RowAt(const QPoint& position) const {
  const QModelIndex index = indexAt(position);
  if (!index.isValid()) return m_model.rowCount();
  return index.row() + (position.y() > visualRect(index).center().y() ? 1 : 0);
}

void ImageListView::dragEnterEvent(QDragEnterEvent* event) {
  QListView::dragEnterEvent(event);
  if (!m_model.IsOwnDrag(*event->mimeData()) && !TakeAsCopy(*event)) event->ignore();
}

void ImageListView::dragMoveEvent(QDragMoveEvent* event) {
  QListView::dragMoveEvent(event);  // shows where it would go, and scrolls
  if (m_model.IsOwnDrag(*event->mimeData())) {
    event->setDropAction(Qt::MoveAction);
    event->accept();
  } else if (!TakeAsCopy(*event)) {
    event->ignore();
  }
}

void ImageListView::dropEvent(QDropEvent* event) {
  const int before = RowAt(event->position().toPoint());
  if (m_model.IsOwnDrag(*event->mimeData())) {
    m_model.Arrange(RowsGatheredAt(m_model.rowCount(), MarkedRows(), before));
    event->setDropAction(Qt::MoveAction);
    event->accept();
  } else if (TakeAsCopy(*event)) {
    emit UrlsDropped(event->mimeData()->urls(), before);
  } else {
    event->ignore();
  }
  stopAutoScroll();
  setState(NoState);
  viewport()->update();
}

}  // namespace quill::ui
