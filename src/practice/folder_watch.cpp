#include "practice/folder_watch.h"

#include <QDir>
#include <utility>

namespace quill::practice {
namespace {

/// A page that is saved is first written, then renamed: one change to be told.
constexpr auto kPause = std::chrono::milliseconds(80);

QString ToPath(const std::filesystem::path& path) {
  return QString::fromStdString(path.string());
}

}  // namespace

FolderWatch::FolderWatch(std::filesystem::path folder, QObject* parent)
    : QObject(parent), m_folder(std::move(folder)) {
  m_pause.setSingleShot(true);
  m_pause.setInterval(kPause);
  connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &FolderWatch::OnChange);
  connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &FolderWatch::OnChange);
  connect(&m_pause, &QTimer::timeout, this, [this] {
    WatchAll();  // first, so that no change after it is missed
    emit Changed();
  });
  WatchAll();
}

void FolderWatch::WatchFile(const std::filesystem::path& file) {
  if (file == m_file) return;
  if (!m_file.empty()) m_watcher.removePath(ToPath(m_file));
  m_file = file;
  WatchAll();
}

void FolderWatch::OnChange() {
  if (!m_pause.isActive()) m_pause.start();  // not begun anew: steady changes are told too
}

/// Folders may be new, and a file that was replaced is another file.
void FolderWatch::WatchAll() {
  QStringList paths{ToPath(m_folder)};
  const QDir folder(ToPath(m_folder));
  for (const QString& section : folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks)) {
    paths += folder.filePath(section);
  }
  if (std::error_code ignored; !m_file.empty() && std::filesystem::exists(m_file, ignored))
    paths += ToPath(m_file);
  for (const QString& known : m_watcher.directories() + m_watcher.files()) paths.removeAll(known);
  if (!paths.isEmpty()) m_watcher.addPaths(paths);
}

}  // namespace quill::practice
