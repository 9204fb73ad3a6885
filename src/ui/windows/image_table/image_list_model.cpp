#include "ui/windows/image_table/image_list_model.h"

#include <QDir>
#include <QLocale>
#include <QMimeData>
#include <QStringList>
#include <QUuid>
#include <filesystem>
#include <utility>

#include "ui/kit/qt_text.h"
#include "ui/windows/image_table/picture_thumbnails.h"

namespace quill::ui {
namespace {

const QString kRowsFormat = QStringLiteral("application/x-quill-picture-rows");
const QString kUrlsFormat = QStringLiteral("text/uri-list");

QString NameOf(const std::string& path) {
  return ToQt(std::filesystem::path(path).filename().string());
}

/// A folder inside the user's own, as they know it: "~/Pictures".
QString ShortFolder(const QString& folder) {
  const QString home = QDir::homePath();
  const bool isInside = folder == home || folder.startsWith(home + u'/');
  return isInside ? u'~' + folder.mid(home.size()) : folder;
}

}  // namespace

ImageListModel::ImageListModel(const shell::StringTable& strings, PictureThumbnails& thumbnails,
                               QObject* parent)
    : QAbstractListModel(parent),
      m_strings(strings),
      m_thumbnails(thumbnails),
      m_ownMark(QUuid::createUuid().toByteArray()) {
  connect(&thumbnails, &PictureThumbnails::Arrived, this, &ImageListModel::TellArrived);
}

void ImageListModel::Insert(int before, const std::vector<std::string>& paths) {
  if (paths.empty()) return;
  beginInsertRows({}, before, before + static_cast<int>(paths.size()) - 1);
  m_paths.insert(m_paths.begin() + before, paths.begin(), paths.end());
  endInsertRows();
}

void ImageListModel::Remove(const std::vector<int>& rows) {
  if (rows.empty()) return;
  // In one piece: views take a long time over hundreds of small ones.
  Arrange(RowsGatheredAt(rowCount(), rows, rowCount()));
  const int first = rowCount() - static_cast<int>(rows.size());
  beginRemoveRows({}, first, rowCount() - 1);
  m_paths.resize(static_cast<std::size_t>(first));
  endRemoveRows();
}

void ImageListModel::Clear() {
  beginResetModel();
  m_paths.clear();
  endResetModel();
}

void ImageListModel::Arrange(const RowOrder& order) {
  if (IsUnchanged(order)) return;
  emit layoutAboutToBeChanged({}, VerticalSortHint);
  std::vector<std::string> paths(m_paths.size());
  std::vector<int> places(m_paths.size());
  for (std::size_t place = 0; place < order.size(); ++place) {
    const auto old = static_cast<std::size_t>(order[place]);
    paths[place] = std::move(m_paths[old]);
    places[old] = static_cast<int>(place);
  }
  m_paths = std::move(paths);
  const QModelIndexList before = persistentIndexList();
  QModelIndexList after;
  for (const QModelIndex& was : before) after << index(places[static_cast<std::size_t>(was.row())]);
  changePersistentIndexList(before, after);
  emit layoutChanged({}, VerticalSortHint);
}

bool ImageListModel::IsOwnDrag(const QMimeData& data) const {
  return data.data(kRowsFormat) == m_ownMark;
}

int ImageListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(m_paths.size());
}

QVariant ImageListModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const std::string& path = m_paths[static_cast<std::size_t>(index.row())];
  switch (role) {
    case Qt::DisplayRole:
      return NameOf(path);
    case Qt::ToolTipRole:
      // The tags keep a name from being taken for rich text of its own.
      return QStringLiteral("<span>%1</span>").arg(ToQt(path).toHtmlEscaped());
    case Qt::AccessibleTextRole: {
      const QString detail = DetailOf(path);
      return detail.isEmpty() ? NameOf(path) : NameOf(path) + QStringLiteral(", ") + detail;
    }
    case Qt::AccessibleDescriptionRole:
      return ToQt(path);
    case DetailRole:
      return DetailOf(path);
    case FolderRole:
      return ShortFolder(ToQt(std::filesystem::path(path).parent_path().string()));
    case ThumbnailRole: {
      const PictureFacts* facts = m_thumbnails.FindOrRead(path);
      return facts != nullptr ? QVariant(facts->thumbnail) : QVariant();
    }
    default:
      return {};
  }
}

QString ImageListModel::DetailOf(const std::string& path) const {
  const PictureFacts* facts = m_thumbnails.Find(path);
  if (facts == nullptr) return {};
  const QLocale locale;
  QStringList parts;
  if (!facts->size.isEmpty()) {
    const auto number = [&](int pixels) { return FromQt(locale.toString(pixels)); };
    parts << ToQt(
        m_strings.Format("strImageTablePixels", {number(facts->size.width()), number(facts->size.height())}));
  }
  if (facts->bytes) {
    parts << locale.formattedDataSize(static_cast<qint64>(*facts->bytes), 1, QLocale::DataSizeSIFormat);
  } else {
    parts << ToQt(m_strings.Text("strSkipUnreadable"));
  }
  return parts.join(QStringLiteral("   ·   "));
}

void ImageListModel::TellArrived(const std::string& path) {
  for (std::size_t row = 0; row < m_paths.size(); ++row) {
    if (m_paths[row] != path) continue;
    const QModelIndex changed = index(static_cast<int>(row));
    emit dataChanged(changed, changed, {ThumbnailRole, DetailRole, Qt::AccessibleTextRole});
  }
}

Qt::ItemFlags ImageListModel::flags(const QModelIndex& index) const {
  // Nothing is dropped onto a picture, only between two of them.
  if (!index.isValid()) return Qt::ItemIsDropEnabled;
  return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled | Qt::ItemNeverHasChildren;
}

QStringList ImageListModel::mimeTypes() const {
  return {kRowsFormat, kUrlsFormat};
}

QMimeData* ImageListModel::mimeData(const QModelIndexList& indexes) const {
  if (indexes.isEmpty()) return nullptr;
  auto* data = new QMimeData;
  data->setData(kRowsFormat, m_ownMark);
  return data;
}

}  // namespace quill::ui
