#include "ui/windows/image_table/picture_thumbnails.h"

#include <QCoreApplication>
#include <QThreadPool>
#include <chrono>
#include <utility>

#include "ui/kit/background.h"

namespace quill::ui {
namespace {

/// At 100 pixels square about 20 MB.
constexpr qsizetype kMostKept = 500;
/// More rows than a screen shows.
constexpr qsizetype kMostWaiting = 100;
constexpr qsizetype kMostReading = 2;
constexpr std::chrono::milliseconds kPatienceAtTheEnd{500};

/// The threads of all lists. A file on a disk that does not answer holds its thread for good, which must be
/// none of those that other work waits for.
///
/// Never destroyed, because that would wait for such a file; a read that goes on is given a moment at the
/// program's end.
QThreadPool& ReadingThreads() {
  static QThreadPool* const pool = [] {
    auto* made = new QThreadPool;
    made->setMaxThreadCount(kMostReading);
    qAddPostRoutine([] {
      ReadingThreads().clear();
      ReadingThreads().waitForDone(static_cast<int>(kPatienceAtTheEnd.count()));
    });
    return made;
  }();
  return *pool;
}

}  // namespace

PictureThumbnails::PictureThumbnails(int edge, Read read, QObject* parent)
    : QObject(parent), m_edge(edge), m_read(std::move(read)), m_known(kMostKept) {}

const PictureFacts* PictureThumbnails::Find(const std::string& path) const {
  return m_known.object(QByteArray::fromStdString(path));
}

const PictureFacts* PictureThumbnails::FindOrRead(const std::string& path) {
  const QByteArray key = QByteArray::fromStdString(path);
  if (const PictureFacts* known = m_known.object(key)) return known;
  if (m_reading.contains(key) || m_waiting.contains(key)) return nullptr;
  m_waiting.append(key);
  if (m_waiting.size() > kMostWaiting) m_waiting.removeFirst();
  ReadNext();
  return nullptr;
}

void PictureThumbnails::ReadNext() {
  while (!m_waiting.isEmpty() && m_reading.size() < kMostReading) {
    const QByteArray path = m_waiting.takeFirst();
    m_reading.append(path);
    RunInBackground<PictureFacts>(
        this, [read = m_read, path = path.toStdString(), edge = m_edge] { return read(path, edge); },
        [this, path](PictureFacts facts) { Keep(path, std::move(facts)); }, ReadingThreads());
  }
}

void PictureThumbnails::Keep(const QByteArray& path, PictureFacts facts) {
  m_reading.removeOne(path);
  m_known.insert(path, new PictureFacts(std::move(facts)));
  ReadNext();
  emit Arrived(path.toStdString());
}

}  // namespace quill::ui
