#pragma once
#include <QAbstractListModel>
#include <string>
#include <vector>

#include "shell/string_table.h"
#include "ui/windows/image_table/row_order.h"

namespace quill::ui {

class PictureThumbnails;

/// The chosen pictures in their order. A file may be in it several times. GUI thread.
class ImageListModel final : public QAbstractListModel {
  Q_OBJECT
 public:
  enum Role {
    DetailRole = Qt::UserRole,  ///< pixels and bytes in words; empty before the file was read
    FolderRole,
    ThumbnailRole,  ///< a QImage, null when there is none; not valid before the file was read
  };

  ImageListModel(const shell::StringTable& strings, PictureThumbnails& thumbnails, QObject* parent);

  const std::vector<std::string>& paths() const { return m_paths; }

  void Insert(int before, const std::vector<std::string>& paths);
  void Remove(const std::vector<int>& rows);
  void Clear();
  /// Marks and the current row go with their pictures.
  void Arrange(const RowOrder& order);

  /// Whether this is a drag of this list's own rows.
  bool IsOwnDrag(const QMimeData& data) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  /// Asking for the thumbnail has the file read.
  QVariant data(const QModelIndex& index, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  Qt::DropActions supportedDropActions() const override { return Qt::CopyAction | Qt::MoveAction; }
  Qt::DropActions supportedDragActions() const override { return Qt::MoveAction; }
  QStringList mimeTypes() const override;
  QMimeData* mimeData(const QModelIndexList& indexes) const override;

 private:
  QString DetailOf(const std::string& path) const;
  void TellArrived(const std::string& path);

  const shell::StringTable& m_strings;
  PictureThumbnails& m_thumbnails;
  std::vector<std::string> m_paths;
  QByteArray m_ownMark;  ///< in this list's drags, so that those of another program's list are told apart
};

}  // namespace quill::ui
