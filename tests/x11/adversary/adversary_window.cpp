#include "adversary_window.h"

#include <xcb/xfixes.h>

#include <cstdio>

#include "platform/x11/x11_selection_reader.h"

namespace quill::x11_test {
namespace {

using namespace platform::x11;
using std::chrono::steady_clock;

constexpr std::chrono::milliseconds kLate{400};

void Say(const std::string& line) {
  std::puts(line.c_str());
  std::fflush(stdout);
}

void SetText(const X11Connection& c, xcb_window_t window, xcb_atom_t property, const std::string& text) {
  xcb_change_property(c.get(), XCB_PROP_MODE_REPLACE, window, property, XCB_ATOM_STRING, 8,
                      static_cast<std::uint32_t>(text.size()), text.data());
}

xcb_window_t MakeWindow(const X11Connection& c, const std::string& title) {
  const xcb_window_t window = xcb_generate_id(c.get());
  const std::uint32_t events =
      XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_FOCUS_CHANGE | XCB_EVENT_MASK_PROPERTY_CHANGE;
  xcb_create_window(c.get(), XCB_COPY_FROM_PARENT, window, c.root(), 0, 0, 300, 200, 0,
                    XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
  SetText(c, window, XCB_ATOM_WM_NAME, title);
  xcb_change_property(c.get(), XCB_PROP_MODE_REPLACE, window, c.atoms().wmProtocols, XCB_ATOM_ATOM, 32, 1,
                      &c.atoms().netWmPing);
  xcb_map_window(c.get(), window);
  return window;
}

std::uint8_t WatchOwners(const X11Connection& c) {
  Reply(c.get(), xcb_xfixes_query_version(c.get(), 5, 0), xcb_xfixes_query_version_reply);
  xcb_xfixes_select_selection_input(c.get(), c.window(), c.atoms().clipboard,
                                    XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER);
  return xcb_get_extension_data(c.get(), &xcb_xfixes_id)->first_event;
}

}  // namespace

AdversaryWindow::AdversaryWindow(X11Connection& connection, Manners manners)
    : m_connection(connection),
      m_manners(std::move(manners)),
      m_window(MakeWindow(connection, m_manners.title)),
      m_answerer(connection, [](xcb_window_t) {}) {
  m_fixesEvent = WatchOwners(connection);
  xcb_flush(connection.get());
}

bool AdversaryWindow::HandleEvents() {
  while (const XcbEvent event{xcb_poll_for_event(m_connection.get())}) {
    const int type = EventType(*event);
    if (m_hung) continue;
    if (type == XCB_KEY_PRESS && !OnKey(As<xcb_key_press_event_t>(*event))) return false;
    if (type == XCB_FOCUS_IN && As<xcb_focus_in_event_t>(*event).mode == XCB_NOTIFY_MODE_NORMAL) Say("focus");
    if (type == XCB_CLIENT_MESSAGE) OnMessage(As<xcb_client_message_event_t>(*event));
    if (type == XCB_SELECTION_REQUEST) OnRequest(As<xcb_selection_request_event_t>(*event));
    if (type == XCB_SELECTION_NOTIFY) OnAnswer(As<xcb_selection_notify_event_t>(*event));
    if (type == XCB_PROPERTY_NOTIFY) OnProperty(As<xcb_property_notify_event_t>(*event));
    if (type == m_fixesEvent) OnOwner(As<xcb_xfixes_selection_notify_event_t>(*event).owner);
  }
  xcb_flush(m_connection.get());
  return !m_connection.Broken();
}

bool AdversaryWindow::OnKey(const xcb_key_press_event_t& key) {
  const auto keys = Reply(m_connection.get(), xcb_get_keyboard_mapping(m_connection.get(), key.detail, 1),
                          xcb_get_keyboard_mapping_reply);
  const xcb_keysym_t symbol = xcb_get_keyboard_mapping_keysyms(keys.get())[0];
  if (symbol >= 0xffe1 && symbol <= 0xffee) return true;  // the modifiers themselves
  const std::string name = symbol == 0xff08   ? "BackSpace"
                           : symbol == 0xff54 ? "Down"
                           : symbol < 0x7f    ? std::string(1, static_cast<char>(symbol))
                                              : std::to_string(symbol);
  const bool control = key.state & XCB_MOD_MASK_CONTROL;
  Say(std::string("key ") + (control ? "Control+" : "") + (key.state & XCB_MOD_MASK_1 ? "Alt+" : "") +
      (key.state & XCB_MOD_MASK_SHIFT ? "Shift+" : "") + name);
  if (control && name == "c") return OnCopy();
  if (control && name == "v" && m_manners.paste == "reads") {
    m_taking = false;
    AskFor("text/html");
  }
  return true;
}

bool AdversaryWindow::OnCopy() {
  if (m_manners.copy == "close") return false;
  if (m_manners.copy == "hang") m_hung = true;
  if (m_manners.copy == "late") m_copyAt = steady_clock::now() + kLate;
  if (m_manners.copy == "at-once") m_copyAt = steady_clock::now();
  return true;
}

void AdversaryWindow::OnRequest(const xcb_selection_request_event_t& request) {
  if (m_manners.answer == "late") m_lateAnswers.emplace_back(steady_clock::now() + kLate, request);
  if (m_manners.answer == "at-once") m_answerer.OnRequest(request);
}

void AdversaryWindow::Tick() {
  while (!m_lateAnswers.empty() && m_lateAnswers.front().first <= steady_clock::now()) {
    m_answerer.OnRequest(m_lateAnswers.front().second);
    m_lateAnswers.pop_front();
  }
  if (!m_copyAt || steady_clock::now() < *m_copyAt) return;
  m_copyAt.reset();
  std::string html = m_manners.html;
  if (m_manners.size > html.size()) html.append(m_manners.size - html.size(), 'x');
  Offer({{"text/html", html}, {"UTF8_STRING", "copied"}});
}

void AdversaryWindow::Offer(std::map<std::string, std::string> forms) {
  auto contents = std::make_shared<SelectionContents>();
  for (const auto& [name, bytes] : forms) {
    const xcb_atom_t target = AtomOf(m_connection, name);
    contents->forms.push_back({target, target, 8, bytes});
  }
  m_forms = std::move(forms);
  m_answerer.Offer(contents);
  xcb_set_selection_owner(m_connection.get(), m_window, m_connection.atoms().clipboard, XCB_CURRENT_TIME);
  xcb_flush(m_connection.get());
}

bool AdversaryWindow::Obey(const std::string& line) {
  if (line == "close") return false;
  if (line == "grab") {
    Reply(m_connection.get(),
          xcb_grab_keyboard(m_connection.get(), 0, m_connection.root(), XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC,
                            XCB_GRAB_MODE_ASYNC),
          xcb_grab_keyboard_reply);
    Say("grabbed");
  } else if (line == "activate") {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = m_window;
    message.type = m_connection.atoms().netActiveWindow;
    message.data.data32[0] = 2;
    xcb_send_event(m_connection.get(), 0, m_connection.root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&message));
    xcb_flush(m_connection.get());
  } else if (line.rfind("own ", 0) == 0) {
    const std::size_t blank = line.find(' ', 4);
    std::map<std::string, std::string> forms = m_forms;
    forms[line.substr(4, blank - 4)] = line.substr(blank + 1);
    Offer(std::move(forms));
    Say("owns");
  }
  return true;
}

void AdversaryWindow::OnMessage(const xcb_client_message_event_t& message) {
  if (message.type != m_connection.atoms().wmProtocols ||
      message.data.data32[0] != m_connection.atoms().netWmPing) {
    return;
  }
  xcb_client_message_event_t answer = message;
  answer.response_type = XCB_CLIENT_MESSAGE;
  answer.window = m_connection.root();
  xcb_send_event(m_connection.get(), 0, m_connection.root(),
                 XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                 reinterpret_cast<const char*>(&answer));
}

void AdversaryWindow::AskFor(const char* target) {
  m_collected.clear();
  m_inPortions = false;
  xcb_convert_selection(m_connection.get(), m_window, m_connection.atoms().clipboard,
                        AtomOf(m_connection, target), m_connection.atoms().transferProperty,
                        XCB_CURRENT_TIME);
}

std::string AdversaryWindow::TakeProperty(xcb_atom_t& type) {
  const auto reply = Reply(m_connection.get(),
                           xcb_get_property(m_connection.get(), 1, m_window,
                                            m_connection.atoms().transferProperty, XCB_ATOM_ANY, 0, 1u << 24),
                           xcb_get_property_reply);
  type = reply ? reply->type : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
  if (!reply) return {};
  return {static_cast<const char*>(xcb_get_property_value(reply.get())),
          static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))};
}

void AdversaryWindow::OnAnswer(const xcb_selection_notify_event_t& answer) {
  if (answer.property == XCB_ATOM_NONE) return Say("pasted nothing");
  xcb_atom_t type = XCB_ATOM_NONE;
  m_collected = TakeProperty(type);
  m_inPortions = type == m_connection.atoms().incr;
  if (m_inPortions) {
    m_collected.clear();
  } else {
    Collected();
  }
}

void AdversaryWindow::OnProperty(const xcb_property_notify_event_t& change) {
  if (change.window != m_window && change.state == XCB_PROPERTY_DELETE) {
    return m_answerer.OnPropertyDeleted(change.window, change.atom);
  }
  if (!m_inPortions || change.atom != m_connection.atoms().transferProperty ||
      change.state != XCB_PROPERTY_NEW_VALUE) {
    return;
  }
  xcb_atom_t type = XCB_ATOM_NONE;
  const std::string portion = TakeProperty(type);
  m_collected += portion;
  if (portion.empty() && type != XCB_ATOM_NONE) {
    m_inPortions = false;
    Collected();
  }
}

void AdversaryWindow::Collected() {
  if (m_taking) {
    m_taking = false;
    Offer({{"text/html", m_collected}});
    Say("took over");
  } else {
    Say("pasted " + std::to_string(m_collected.size()) + " " + m_collected.substr(0, 200));
  }
}

void AdversaryWindow::OnOwner(xcb_window_t owner) {
  if (owner == m_window) return;
  if (m_manners.watch == "other") Offer({{"text/html", "<p>meanwhile</p>"}});
  if (m_manners.watch == "same") {
    m_taking = true;
    AskFor("text/html");
  }
}

}  // namespace quill::x11_test
