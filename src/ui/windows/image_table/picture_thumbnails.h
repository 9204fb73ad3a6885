#pragma once
#include <QByteArray>
#include <QCache>
#include <QList>
#include <QObject>
#include <functional>
#include <string>

#include "ui/windows/image_table/picture_facts.h"

namespace quill::ui {

/// The facts and thumbnails of the pictures that a list shows, read on other threads as they are looked at.
///
/// Two files are read at a time, those asked for last are the ones kept waiting, and some hundreds of
/// thumbnails are kept. GUI thread.
class PictureThumbnails final : public QObject {
  Q_OBJECT
 public:
  using Read = std::function<PictureFacts(const std::string& path, int edge)>;

  /// `edge`: of the square that a thumbnail fits into, in the screen's pixels.
  explicit PictureThumbnails(int edge, Read read = ReadPictureFacts, QObject* parent = nullptr);

  /// What is known of a file; null before it was read. The pointer is good until the next call.
  const PictureFacts* Find(const std::string& path) const;

  /// The same, and reads the file when it was not; `Arrived` tells the end of that.
  const PictureFacts* FindOrRead(const std::string& path);

  /// Forgets what waits, because the list shows other rows now.
  void ForgetWaiting() { m_waiting.clear(); }

 signals:
  void Arrived(const std::string& path);

 private:
  void ReadNext();
  void Keep(const QByteArray& path, PictureFacts facts);

  int m_edge;
  Read m_read;
  QCache<QByteArray, PictureFacts> m_known;
  QList<QByteArray> m_waiting;
  QList<QByteArray> m_reading;
};

}  // namespace quill::ui
