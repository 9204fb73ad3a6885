#pragma once
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/x11/x11_connection.h"

namespace quill::platform::x11 {

/// One form of the clipboard as the server carries it.
struct SelectionForm {
  xcb_atom_t target = XCB_ATOM_NONE;
  xcb_atom_t type = XCB_ATOM_NONE;
  std::uint8_t format = 8;
  std::string bytes;
};

/// What this program offers to others. Immutable once offered.
struct SelectionContents {
  std::vector<SelectionForm> forms;
  xcb_timestamp_t since = XCB_CURRENT_TIME;
};

/// A program that for a while still gets other contents than everybody else.
///
/// A browser reads a paste more than once, the second time from its own cache; a new owner in between makes
/// it paste the new contents instead (seen with Chromium on 1 MB of HTML, some 100 ms apart). So the program
/// that was pasted into keeps seeing the paste when the user's clipboard is back for all others.
struct SelectionGuest {
  xcb_window_t client = XCB_NONE;
  std::shared_ptr<const SelectionContents> contents;
  bool taken = false;  ///< it has read the paste at least once
  Deadline end{};
};

/// Answers other programs' requests for what this program has on the clipboard, large data in portions.
/// Belongs to the thread that reads the connection's events.
class SelectionAnswerer {
 public:
  /// `fetched` is told each requestor that has got a whole form (not the list of forms).
  SelectionAnswerer(X11Connection& connection, std::function<void(xcb_window_t requestor)> fetched);

  void Offer(std::shared_ptr<const SelectionContents> contents) { m_contents = std::move(contents); }
  /// Starts or, with nothing, ends a visit; `end` is set here and by the guest's first read.
  void Invite(std::optional<SelectionGuest> guest);
  const std::optional<SelectionGuest>& guest() const { return m_guest; }
  void OnRequest(const xcb_selection_request_event_t& request);
  void OnPropertyDeleted(xcb_window_t requestor, xcb_atom_t property);
  void OnRequestorGone(xcb_window_t requestor);
  bool Busy() const { return !m_transfers.empty(); }

 private:
  /// A form on its way in portions.
  struct Transfer {
    xcb_window_t requestor;
    xcb_atom_t property;
    std::shared_ptr<const SelectionContents> contents;  // keeps `form` alive when somebody else takes over
    const SelectionForm* form;
    std::size_t sent;
  };

  const std::shared_ptr<const SelectionContents>& ContentsFor(xcb_window_t requestor);
  bool Convert(xcb_window_t requestor, xcb_atom_t target, xcb_atom_t property);
  bool ConvertMultiple(xcb_window_t requestor, xcb_atom_t property);
  void PutTargets(xcb_window_t requestor, xcb_atom_t property);
  void PutForm(xcb_window_t requestor, xcb_atom_t property, const SelectionForm& form);
  void Put(xcb_window_t requestor, xcb_atom_t property, const SelectionForm& form, std::size_t from,
           std::size_t size);
  void Fetched(xcb_window_t requestor);
  const SelectionForm* Find(xcb_atom_t target) const;

  X11Connection& m_connection;
  std::function<void(xcb_window_t)> m_fetched;
  std::shared_ptr<const SelectionContents> m_contents;
  std::optional<SelectionGuest> m_guest;
  std::shared_ptr<const SelectionContents> m_asked;  ///< what the request at hand is answered from
  std::list<Transfer> m_transfers;
};

}  // namespace quill::platform::x11
