#pragma once
#include <QObject>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>

#include "platform/pasteboard.h"

class QClipboard;
class QMimeData;

namespace quill::platform::qt {

/// The system clipboard through Qt. Made and destroyed on the GUI thread; the `Pasteboard` methods may be
/// called from the command thread, which waits for the GUI thread with a deadline, or from the GUI thread
/// itself (except `WaitForNewContents`, which would keep the news from arriving).
///
/// `Clear` throws nothing away: it only marks the moment, so that a copy that fails loses nothing.
/// Forms larger than `kLargest` are refused by `Read` and left out of `Save`.
class QtPasteboard final : public QObject, public Pasteboard {
 public:
  static constexpr qsizetype kLargest = qsizetype{64} << 20;

  /// `deadline` is for one access that has to wait for the GUI thread.
  explicit QtPasteboard(QObject* parent = nullptr,
                        std::chrono::milliseconds deadline = std::chrono::seconds(3));
  ~QtPasteboard() override;

  void Clear() override;
  bool WaitForNewContents(std::chrono::milliseconds deadline) override;
  Result<std::string, ReadProblem> Read(Flavour flavour) override;
  bool Write(Flavour flavour, std::string_view bytes) override;
  PasteboardSnapshot Save() override;
  void Restore(const PasteboardSnapshot& snapshot) override;
  std::vector<std::string> FlavourNames() override;

 private:
  Result<std::string, ReadProblem> ReadHere(Flavour flavour) const;
  PasteboardSnapshot SaveHere() const;
  bool Own(QMimeData* data);

  QClipboard* m_clipboard;
  std::chrono::milliseconds m_deadline;
  mutable std::mutex m_mutex;
  std::condition_variable m_changed;
  std::uint64_t m_changes = 0;  ///< how often the contents were replaced, by whomever
  std::uint64_t m_known = 0;    ///< the change that this program made or waited for last
  bool m_readable = true;       ///< false from `Clear` to the next contents
};

}  // namespace quill::platform::qt
