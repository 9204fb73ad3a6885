#pragma once
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

#include "platform/x11/x11_selection_answer.h"

namespace quill::platform::x11 {

/// Another program has become the clipboard's owner (`owner` is `XCB_NONE`: the owner went away).
struct OwnerChange {
  std::uint64_t number;  ///< counts up from 1
  xcb_window_t owner;
};

/// What has been seen of the clipboard so far.
struct SelectionState {
  std::deque<OwnerChange> changes;  ///< the last ones, oldest first; this program's own are not among them
  std::uint64_t lastChange = 0;
  bool ours = false;                ///< this program owns the clipboard
  std::uint64_t requests = 0;       ///< requests of other programs, of any kind
  std::deque<xcb_window_t> takers;  ///< who has got a whole form since `ForgetTakers`
  bool busy = false;                ///< a large form is on its way
  bool visited = false;             ///< a guest still gets other contents than everybody else
  bool managerDone = false;         ///< a clipboard manager has answered `SAVE_TARGETS`
  bool lost = false;                ///< the connection broke
};

/// Owns the clipboard for this program and watches who else does: one connection and one thread that does
/// nothing but answer, so that a paste is served while the command thread waits for it.
/// The methods may be called from any thread.
class SelectionServer {
 public:
  static Result<std::unique_ptr<SelectionServer>> Start(const char* display);
  ~SelectionServer();
  SelectionServer(const SelectionServer&) = delete;
  SelectionServer& operator=(const SelectionServer&) = delete;

  /// The window that owns the clipboard when this program does.
  xcb_window_t window() const { return m_connection->window(); }

  /// Takes the clipboard at server time `now`. False when the server refused.
  bool Own(SelectionContents contents, xcb_timestamp_t now);
  /// Gives the clipboard up: it is empty afterwards.
  void Disown(xcb_timestamp_t now);
  /// As `Own` or, for contents without any form, `Disown`; but the guest's program goes on seeing its
  /// contents until its visit is over, and the owner changes in its eyes only then.
  bool OwnBeside(SelectionGuest guest, SelectionContents contents, xcb_timestamp_t now);
  /// What this program offers; null when it does not own the clipboard.
  std::shared_ptr<const SelectionContents> Offered() const;

  /// Asks the clipboard manager, if there is one, to take over what this program offers.
  void HandToManager(std::chrono::milliseconds deadline);

  /// Returns when everything that the X server had sent before the call has been seen.
  void CatchUp();

  /// A copy of the state.
  SelectionState State() const;
  void ForgetTakers();

  /// Waits until `condition` holds for the state; false at the deadline.
  bool WaitFor(Deadline deadline, const std::function<bool(const SelectionState&)>& condition);

 private:
  explicit SelectionServer(std::unique_ptr<X11Connection> connection);
  void Serve();
  XcbEvent NextEvent();
  bool EndVisit();
  bool Handle(const xcb_generic_event_t& event);
  void OnOwner(xcb_window_t owner);
  void SendMark(std::uint32_t kind);

  std::unique_ptr<X11Connection> m_connection;
  std::uint8_t m_fixesEvent = 0;
  mutable std::mutex m_mutex;
  std::condition_variable m_changed;
  SelectionAnswerer m_answerer;                        // guarded by m_mutex
  std::shared_ptr<const SelectionContents> m_next;     // guarded by m_mutex; offered once we own
  std::shared_ptr<const SelectionContents> m_offered;  // guarded by m_mutex
  SelectionState m_state;                              // guarded by m_mutex
  std::optional<SelectionGuest> m_nextGuest;           // guarded by m_mutex
  std::uint32_t m_marksSent = 0, m_marksSeen = 0;      // guarded by m_mutex
  std::thread m_thread;
};

}  // namespace quill::platform::x11
