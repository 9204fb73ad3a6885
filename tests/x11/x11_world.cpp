#include "x11/x11_world.h"

#include <gtest/gtest.h>
#include <xcb/xtest.h>

#include "platform/x11/x11_selection_reader.h"
#include "platform/x11/x11_window_finder.h"

namespace quill::x11_test {
namespace {

using namespace platform::x11;
using namespace std::chrono_literals;

/// A window manager announces itself before it looks after windows; this one answers when it does.
void WaitForWindowManager(X11Connection& connection) {
  const xcb_atom_t extents = AtomOf(connection, "_NET_FRAME_EXTENTS");
  xcb_client_message_event_t question{};
  question.response_type = XCB_CLIENT_MESSAGE;
  question.format = 32;
  question.window = connection.window();
  question.type = AtomOf(connection, "_NET_REQUEST_FRAME_EXTENTS");
  const bool answered = Eventually(
      [&] {
        xcb_send_event(connection.get(), 0, connection.root(),
                       XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                       reinterpret_cast<const char*>(&question));
        return !connection.Words(connection.window(), extents).empty();
      },
      20s);
  if (!answered) throw std::runtime_error("openbox did not start");
}

}  // namespace

X11World::X11World() {
  m_server = std::make_unique<ChildProcess>(
      std::vector<std::string>{"Xvfb", "-screen", "0", "1280x900x24", "-nolisten", "tcp", "-noreset"},
      ChildProcess::Environment{}, "-displayfd");
  m_display = ":" + m_server->WaitForLine("", 20s);
  Result<std::unique_ptr<X11Connection>> connection = X11Connection::Open(m_display.c_str());
  if (!connection.ok()) throw std::runtime_error("Xvfb: " + connection.error());
  m_connection = std::move(*connection);
  m_windowManager = Start({"openbox", "--sm-disable"});
  WaitForWindowManager(*m_connection);
}

std::unique_ptr<ChildProcess> X11World::Start(std::vector<std::string> command) const {
  return std::make_unique<ChildProcess>(std::move(command),
                                        ChildProcess::Environment{{"DISPLAY", m_display}});
}

std::unique_ptr<ChildProcess> X11World::Adversary(std::vector<std::string> manners) const {
  std::string title = "OneNote";
  for (const std::string& manner : manners) {
    if (manner.rfind("title=", 0) == 0) title = manner.substr(6);
  }
  manners.insert(manners.begin(), QUILL_ADVERSARY);
  std::unique_ptr<ChildProcess> window = Start(std::move(manners));
  EXPECT_NE(window->WaitForLine("focus"), "(none)") << "the window did not come up";
  EXPECT_TRUE(BecomesActive(title)) << title;
  return window;
}

bool X11World::BecomesActive(const std::string& title) const {
  return Eventually([&] {
    const xcb_window_t active = ActiveWindow(*m_connection);
    if (active == XCB_NONE || WindowTitle(*m_connection, active) != title) return false;
    const auto focus =
        Reply(m_connection->get(), xcb_get_input_focus(m_connection->get()), xcb_get_input_focus_reply);
    return focus && focus->focus == active;
  });
}

std::unique_ptr<ChildProcess> X11World::ClipboardOwner(
    const std::vector<std::pair<std::string, std::string>>& forms) const {
  std::unique_ptr<ChildProcess> owner = Adversary({"title=user"});
  for (const auto& [name, bytes] : forms) owner->Say("own " + name + " " + bytes);
  EXPECT_TRUE(Eventually([&] {
    std::size_t owned = 0;
    for (const std::string& line : owner->Lines()) owned += line == "owns";
    return owned == forms.size();
  }));
  return owner;
}

std::unique_ptr<X11Backend> X11World::Backend(std::string pattern) {
  Result<std::unique_ptr<X11Backend>> backend =
      X11Backend::Open(m_display.c_str(), [pattern] { return pattern; });
  if (!backend.ok()) throw std::runtime_error(backend.error());
  (*backend)->OnNote([this](std::string_view note) {
    m_notes.emplace_back(note);
    if (onNote) onNote(note);
  });
  return std::move(*backend);
}

xcb_keycode_t X11World::KeyOf(xcb_keysym_t symbol) {
  xcb_connection_t* c = m_connection->get();
  const xcb_setup_t* setup = xcb_get_setup(c);
  const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
  const auto keys =
      Reply(c, xcb_get_keyboard_mapping(c, setup->min_keycode, count), xcb_get_keyboard_mapping_reply);
  const xcb_keysym_t* symbols = xcb_get_keyboard_mapping_keysyms(keys.get());
  for (int key = 0; key < count; ++key) {
    if (symbols[key * keys->keysyms_per_keycode] == symbol) {
      return static_cast<xcb_keycode_t>(setup->min_keycode + key);
    }
  }
  throw std::runtime_error("no such key on the test's keyboard");
}

void X11World::Fake(std::uint8_t event, xcb_keysym_t symbol) {
  xcb_test_fake_input(m_connection->get(), event, KeyOf(symbol), XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
  m_connection->ServerTime();  // returns when the server has taken it
}

void X11World::Press(xcb_keysym_t symbol) {
  Fake(XCB_KEY_PRESS, symbol);
}
void X11World::Release(xcb_keysym_t symbol) {
  Fake(XCB_KEY_RELEASE, symbol);
}

std::string X11World::ClipboardAs(const std::string& form) const {
  const std::string end = "--end-of-clipboard--";
  const std::unique_ptr<ChildProcess> reader =
      Start({"sh", "-c", "timeout 5 xclip -selection clipboard -t '" + form + "' -o; echo; echo " + end});
  reader->WaitForLine(end, 10s);
  std::string all;
  for (const std::string& line : reader->Lines()) {
    if (line == end) break;
    all += all.empty() ? line : "\n" + line;
  }
  while (!all.empty() && all.back() == '\n') all.pop_back();
  return all;
}

std::string KeysOf(ChildProcess& window) {
  std::string keys;
  for (const std::string& line : window.Lines()) {
    if (line.compare(0, 4, "key ") == 0) keys += (keys.empty() ? "" : " ") + line.substr(4);
  }
  return keys;
}

}  // namespace quill::x11_test
