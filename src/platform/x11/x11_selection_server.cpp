#include "platform/x11/x11_selection_server.h"

#include <poll.h>
#include <xcb/xfixes.h>

#include <algorithm>

namespace quill::platform::x11 {
namespace {

constexpr std::size_t kChangesKept = 64;
constexpr std::chrono::milliseconds kCatchUp{1000};

// What a message of this program to itself says (data32[0]).
constexpr std::uint32_t kMark = 0;
constexpr std::uint32_t kEnd = 1;

std::uint8_t WatchClipboard(const X11Connection& connection) {
  xcb_connection_t* c = connection.get();
  const xcb_query_extension_reply_t* fixes = xcb_get_extension_data(c, &xcb_xfixes_id);
  if (!fixes || !fixes->present ||
      !Reply(c, xcb_xfixes_query_version(c, 5, 0), xcb_xfixes_query_version_reply)) {
    return 0;
  }
  xcb_xfixes_select_selection_input(c, connection.window(), connection.atoms().clipboard,
                                    XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                        XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                        XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
  return fixes->first_event;
}

xcb_window_t OwnerOf(const X11Connection& connection, xcb_atom_t selection) {
  const auto reply = Reply(connection.get(), xcb_get_selection_owner(connection.get(), selection),
                           xcb_get_selection_owner_reply);
  return reply ? reply->owner : XCB_NONE;
}

}  // namespace

Result<std::unique_ptr<SelectionServer>> SelectionServer::Start(const char* display) {
  Result<std::unique_ptr<X11Connection>> connection = X11Connection::Open(display);
  if (!connection.ok()) return Failure{connection.error()};
  std::unique_ptr<SelectionServer> server(new SelectionServer(std::move(*connection)));
  server->m_fixesEvent = WatchClipboard(*server->m_connection);
  if (server->m_fixesEvent == 0) return Failure{std::string("the X server lacks the XFIXES extension")};
  server->m_thread = std::thread([raw = server.get()] { raw->Serve(); });
  return server;
}

SelectionServer::SelectionServer(std::unique_ptr<X11Connection> connection)
    : m_connection(std::move(connection)), m_answerer(*m_connection, [this](xcb_window_t requestor) {
        m_state.takers.push_back(requestor);
        if (m_state.takers.size() > kChangesKept) m_state.takers.pop_front();
      }) {}

SelectionServer::~SelectionServer() {
  if (!m_thread.joinable()) return;
  SendMark(kEnd);
  m_thread.join();
}

void SelectionServer::SendMark(std::uint32_t kind) {
  xcb_client_message_event_t mark{};
  mark.response_type = XCB_CLIENT_MESSAGE;
  mark.format = 32;
  mark.window = window();
  mark.type = m_connection->atoms().stampProperty;
  mark.data.data32[0] = kind;
  // The empty mask sends it to the window's creator: this connection, behind all that is under way.
  xcb_send_event(m_connection->get(), 0, window(), XCB_EVENT_MASK_NO_EVENT,
                 reinterpret_cast<const char*>(&mark));
  xcb_flush(m_connection->get());
}

void SelectionServer::Serve() {
  bool more = true;
  while (more) {
    const XcbEvent event = NextEvent();
    {
      const std::lock_guard lock(m_mutex);
      if (event) {
        more = Handle(*event);
      } else {
        more = false;
        m_state.lost = true;
      }
      m_state.busy = m_answerer.Busy();
      m_state.visited = m_answerer.guest().has_value();
    }
    m_changed.notify_all();
  }
}

/// Waits for the next event; ends a visit when its time is over. Nothing when the connection broke.
XcbEvent SelectionServer::NextEvent() {
  for (;;) {
    std::optional<Deadline> end;
    {
      const std::lock_guard lock(m_mutex);
      if (m_answerer.guest()) end = m_answerer.guest()->end;
    }
    if (!end) return XcbEvent{xcb_wait_for_event(m_connection->get())};
    XcbEvent event{xcb_poll_for_event(m_connection->get())};
    if (event || m_connection->Broken()) return event;
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(*end - std::chrono::steady_clock::now());
    if (left.count() <= 0 && EndVisit()) continue;
    pollfd input{xcb_get_file_descriptor(m_connection->get()), POLLIN, 0};
    poll(&input, 1, std::max(1, static_cast<int>(left.count())));
  }
}

/// Takes the clipboard anew so that the guest sees a change too. The time of the visit's beginning makes the
/// server refuse when somebody else has become owner meanwhile.
bool SelectionServer::EndVisit() {
  {
    const std::lock_guard lock(m_mutex);
    if (!m_answerer.guest() || m_answerer.Busy()) return false;
    m_answerer.Invite(std::nullopt);
    m_state.visited = false;
    if (!m_state.ours) return true;
    const bool empty = m_offered->forms.empty();
    xcb_set_selection_owner(m_connection->get(), empty ? XCB_NONE : window(), m_connection->atoms().clipboard,
                            m_offered->since);
  }
  xcb_flush(m_connection->get());
  m_changed.notify_all();
  return true;
}

bool SelectionServer::Handle(const xcb_generic_event_t& event) {
  const int type = EventType(event);
  if (type == m_fixesEvent + XCB_XFIXES_SELECTION_NOTIFY) {
    OnOwner(As<xcb_xfixes_selection_notify_event_t>(event).owner);
  } else if (type == XCB_SELECTION_REQUEST) {
    ++m_state.requests;
    m_answerer.OnRequest(As<xcb_selection_request_event_t>(event));
  } else if (type == XCB_SELECTION_NOTIFY) {
    m_state.managerDone = true;
  } else if (type == XCB_PROPERTY_NOTIFY) {
    const auto& change = As<xcb_property_notify_event_t>(event);
    if (change.state == XCB_PROPERTY_DELETE) m_answerer.OnPropertyDeleted(change.window, change.atom);
  } else if (type == XCB_DESTROY_NOTIFY) {
    m_answerer.OnRequestorGone(As<xcb_destroy_notify_event_t>(event).window);
  } else if (type == XCB_CLIENT_MESSAGE) {
    const auto& mark = As<xcb_client_message_event_t>(event);
    if (mark.window != window() || mark.type != m_connection->atoms().stampProperty) return true;
    if (mark.data.data32[0] == kEnd) return false;
    ++m_marksSeen;
  }
  return true;
}

void SelectionServer::OnOwner(xcb_window_t owner) {
  // This event comes before any request that the change brings about, so nobody gets older contents.
  m_state.ours = owner == window();
  m_offered = m_state.ours ? m_next : nullptr;
  m_answerer.Invite(m_state.ours ? std::exchange(m_nextGuest, std::nullopt) : std::nullopt);
  m_answerer.Offer(m_offered);
  if (m_state.ours) {
    m_state.takers.clear();
    return;
  }
  m_state.changes.push_back({++m_state.lastChange, owner});
  if (m_state.changes.size() > kChangesKept) m_state.changes.pop_front();
}

bool SelectionServer::Own(SelectionContents contents, xcb_timestamp_t now) {
  contents.since = now;
  {
    const std::lock_guard lock(m_mutex);
    m_next = std::make_shared<const SelectionContents>(std::move(contents));
  }
  xcb_set_selection_owner(m_connection->get(), window(), m_connection->atoms().clipboard, now);
  const bool owns = OwnerOf(*m_connection, m_connection->atoms().clipboard) == window();
  CatchUp();
  return owns;
}

bool SelectionServer::OwnBeside(SelectionGuest guest, SelectionContents contents, xcb_timestamp_t now) {
  contents.since = now;
  const auto next = std::make_shared<const SelectionContents>(std::move(contents));
  bool ours = false;
  {
    const std::lock_guard lock(m_mutex);
    m_next = next;
    ours = m_state.ours;
    if (ours) {
      m_offered = next;
      m_answerer.Offer(next);
      m_answerer.Invite(std::move(guest));
      m_state.visited = true;
    } else {
      m_nextGuest = std::move(guest);
    }
  }
  if (!ours) xcb_set_selection_owner(m_connection->get(), window(), m_connection->atoms().clipboard, now);
  CatchUp();
  return State().ours;
}

void SelectionServer::Disown(xcb_timestamp_t now) {
  xcb_set_selection_owner(m_connection->get(), XCB_NONE, m_connection->atoms().clipboard, now);
  CatchUp();
}

std::shared_ptr<const SelectionContents> SelectionServer::Offered() const {
  const std::lock_guard lock(m_mutex);
  return m_offered;
}

void SelectionServer::HandToManager(std::chrono::milliseconds deadline) {
  const X11Atoms& atoms = m_connection->atoms();
  const std::shared_ptr<const SelectionContents> offered = Offered();
  if (!offered || OwnerOf(*m_connection, atoms.clipboardManager) == XCB_NONE) return;
  std::vector<xcb_atom_t> names;
  for (const SelectionForm& form : offered->forms) names.push_back(form.target);
  xcb_change_property(m_connection->get(), XCB_PROP_MODE_REPLACE, window(), atoms.transferProperty,
                      XCB_ATOM_ATOM, 32, static_cast<std::uint32_t>(names.size()), names.data());
  xcb_convert_selection(m_connection->get(), window(), atoms.clipboardManager, atoms.saveTargets,
                        atoms.transferProperty, offered->since);
  xcb_flush(m_connection->get());
  WaitFor(In(deadline), [](const SelectionState& state) { return state.managerDone; });
}

void SelectionServer::CatchUp() {
  std::unique_lock lock(m_mutex);
  const std::uint32_t mark = ++m_marksSent;
  SendMark(kMark);
  m_changed.wait_until(lock, In(kCatchUp), [&] { return m_state.lost || m_marksSeen >= mark; });
}

SelectionState SelectionServer::State() const {
  const std::lock_guard lock(m_mutex);
  return m_state;
}

void SelectionServer::ForgetTakers() {
  const std::lock_guard lock(m_mutex);
  m_state.takers.clear();
}

bool SelectionServer::WaitFor(Deadline deadline,
                              const std::function<bool(const SelectionState&)>& condition) {
  std::unique_lock lock(m_mutex);
  return m_changed.wait_until(lock, deadline, [&] { return m_state.lost || condition(m_state); }) &&
         !m_state.lost;
}

}  // namespace quill::platform::x11
