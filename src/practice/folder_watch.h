#pragma once
#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>
#include <filesystem>

namespace quill::practice {

/// Tells of changes in a folder and the folders in it, whoever made them. Many changes at a time are told
/// once, a moment after the last of them. GUI thread.
class FolderWatch final : public QObject {
  Q_OBJECT
 public:
  explicit FolderWatch(std::filesystem::path folder, QObject* parent = nullptr);

  /// A file that is also watched for writing in place, which its folder does not tell; only one at a time.
  void WatchFile(const std::filesystem::path& file);

 signals:
  void Changed();

 private:
  void OnChange();
  void WatchAll();

  std::filesystem::path m_folder;
  std::filesystem::path m_file;
  QFileSystemWatcher m_watcher;
  QTimer m_pause;
};

}  // namespace quill::practice
