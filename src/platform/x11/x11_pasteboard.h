#pragma once
#include <map>
#include <memory>
#include <optional>

#include "platform/pasteboard.h"
#include "platform/x11/x11_notes.h"
#include "platform/x11/x11_selection_reader.h"
#include "platform/x11/x11_selection_server.h"

namespace quill::platform::x11 {

/// Who has read what this program pasted.
enum class Taker { Nobody, SomebodyElse, Target };

/// The clipboard of an X display.
///
/// `Clear` takes nothing away from the user: it marks the moment, and reads yield `Absent` until a new
/// owner has come. While a script copies, only the target application counts as new owner; a clipboard
/// manager that takes over afterwards is read instead of it. `Restore` puts the old contents back at once for
/// all but the program that was pasted into, which sees them when it has done with the paste (see
/// SelectionGuest). Reads take up to 64 MB, `Save` up to 2 s.
class X11Pasteboard final : public Pasteboard {
 public:
  static Result<std::unique_ptr<X11Pasteboard>> Open(const char* display, X11Connection& connection,
                                                     const X11Notes& notes);
  /// Leaves what this program owns to the clipboard manager, if there is one (up to 500 ms).
  ~X11Pasteboard() override;

  void Clear() override;
  bool WaitForNewContents(std::chrono::milliseconds deadline) override;
  Result<std::string, ReadProblem> Read(Flavour flavour) override;
  bool Write(Flavour flavour, std::string_view bytes) override;
  PasteboardSnapshot Save() override;
  void Restore(const PasteboardSnapshot& snapshot) override;
  std::vector<std::string> FlavourNames() override;

  /// From now on only contents of `window`'s program count as new. Called just before a copy's keys.
  void ExpectCopyFrom(xcb_window_t window);
  /// Waits for them; false at the deadline. Sees at once when `window` has already copied.
  bool WaitForCopy(Deadline deadline);
  /// True when somebody other than the expected program has written since the last mark.
  bool SomebodyElseWrote() const;

  /// Starts to watch who reads what this program owns. Called just before a paste's keys into `window`.
  void WatchTakers(xcb_window_t window);
  /// Waits until `window`'s program has read a whole form; at the deadline tells who has.
  Taker WaitForTaker(xcb_window_t window, Deadline deadline);
  bool OwnedByUs() const { return m_server->State().ours; }

 private:
  X11Pasteboard(X11Connection& connection, std::unique_ptr<SelectionServer> server, const X11Notes& notes);
  void Mark();
  void TakeLateCopy();
  std::optional<OwnerChange> Arrival(const SelectionState& state) const;
  bool Arrived();
  Result<SelectionForm, ReadProblem> ReadFirst(const std::vector<xcb_atom_t>& targets);
  bool KeepForm(PasteboardSnapshot& snapshot, xcb_atom_t target, const std::string& name, Deadline end,
                std::size_t& left);
  SelectionContents ContentsOf(const PasteboardSnapshot& snapshot) const;
  bool StillOurs();

  X11Connection& m_connection;
  const X11Notes& m_notes;
  std::unique_ptr<SelectionServer> m_server;
  SelectionReader m_reader;

  bool m_cleared = false;         ///< reads yield nothing until a new owner has come
  bool m_touched = false;         ///< this program, or a copy that it asked for, has changed the clipboard
  std::uint64_t m_mark = 0;       ///< the owner changes up to here are old
  std::uint64_t m_trusted = 0;    ///< the owner changes up to here are this program's doing
  xcb_window_t m_expected = 0;    ///< the client whose copy is waited for; 0: anybody's counts
  xcb_window_t m_pastedInto = 0;  ///< the client that was pasted into since `Save`
  std::shared_ptr<const SelectionContents> m_pasted;  ///< what was written last since `Save`
  std::optional<SelectionForm> m_known;               ///< what was last written or read
  std::map<std::string, std::pair<xcb_atom_t, std::uint8_t>> m_savedTypes;
};

}  // namespace quill::platform::x11
