#pragma once
#include <functional>

#include "platform/mac/pasteboard_history.h"
#include "platform/mac/poller.h"
#include "platform/pasteboard.h"

namespace quill::platform::mac {

/// The general pasteboard of macOS.
///
/// Every call is done on the main thread and awaited for at most 3 s, so that an owner that renders slowly
/// costs a command its result and not the program. `Clear` throws nothing away: it marks the moment, so
/// a copy that fails loses nothing. Single forms above `kLargest` are refused by `Read` and left out of
/// `Save`.
class MacPasteboard final : public Pasteboard {
 public:
  static constexpr std::size_t kLargest = std::size_t{64} << 20;

  void Clear() override;
  /// AppKit announces no change of the pasteboard, so its change count is asked for every 10 ms. A count
  /// alone is not enough: an owner that has emptied the pasteboard has yet to fill it.
  bool WaitForNewContents(std::chrono::milliseconds deadline) override;
  Result<std::string, ReadProblem> Read(Flavour flavour) override;
  bool Write(Flavour flavour, std::string_view bytes) override;
  PasteboardSnapshot Save() override;
  /// The system keeps what was written and does not tell who has read it: after a paste, what `OnSettle`
  /// was given decides when the target is done with it.
  void Restore(const PasteboardSnapshot& snapshot) override;
  std::vector<std::string> FlavourNames() override;

  /// Sets what waits, with its own deadline, until the target application has dealt with its last keys.
  void OnSettle(std::function<void()> settle) { m_settle = std::move(settle); }

  /// Ends a wait for new contents, for good. May be called from any thread.
  void Stop() { m_poller.Stop(); }

 private:
  std::function<void()> m_settle;
  Poller m_poller;
  PasteboardHistory m_history;
};

}  // namespace quill::platform::mac
