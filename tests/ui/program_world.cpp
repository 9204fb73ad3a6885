#include "program_world.h"

#include <sys/wait.h>
#include <unistd.h>
#include <xcb/xtest.h>

#include <algorithm>
#include <cstdlib>

#include "base/atomic_file.h"
#include "platform/key_combination.h"
#include "platform/posix/local_channel.h"
#include "platform/x11/x11_key_map.h"
#include "platform/x11/x11_selection_reader.h"
#include "platform/x11/x11_window_finder.h"

namespace quill::ui {
namespace {

namespace fs = std::filesystem;
using namespace platform::x11;
using namespace std::chrono_literals;
using x11_test::ChildProcess;
using x11_test::Eventually;

std::vector<xcb_window_t> ChildrenOf(const X11Connection& c, xcb_window_t window) {
  const auto tree = Reply(c.get(), xcb_query_tree(c.get(), window), xcb_query_tree_reply);
  if (!tree) return {};
  const xcb_window_t* first = xcb_query_tree_children(tree.get());
  return {first, first + xcb_query_tree_children_length(tree.get())};
}

bool IsOnScreen(const X11Connection& c, xcb_window_t window) {
  const auto facts =
      Reply(c.get(), xcb_get_window_attributes(c.get(), window), xcb_get_window_attributes_reply);
  return facts && facts->map_state == XCB_MAP_STATE_VIEWABLE;
}

/// The visible window of this class below `parent` that is in another program's window: neither on its own
/// nor in a frame of the window manager.
xcb_window_t FindEmbedded(const X11Connection& c, xcb_window_t parent, const std::string& name) {
  const xcb_atom_t framed = AtomOf(c, "WM_STATE");
  for (const xcb_window_t child : ChildrenOf(c, parent)) {
    xcb_window_t found = XCB_NONE;
    if (c.Text(child, XCB_ATOM_WM_CLASS).find(name) == std::string::npos) {
      found = FindEmbedded(c, child, name);
    } else if (parent != c.root() && c.Words(child, framed).empty() && IsOnScreen(c, child)) {
      found = child;
    }
    if (found != XCB_NONE) return found;
  }
  return XCB_NONE;
}

}  // namespace

void ProgramTest::SetUp() {
  std::string name = (fs::temp_directory_path() / "quill-ui-XXXXXX").string();
  folder = ::mkdtemp(name.data());
  const std::pair<const char*, fs::path> folders[] = {
      {"HOME", folder / "home"},
      {"QUILL_ROOT", folder / "root"},
      {"XDG_CONFIG_HOME", folder / "config"},
      {"XDG_DATA_HOME", folder / "data"},
      {"XDG_RUNTIME_DIR", folder},
  };
  for (const auto& [variable, path] : folders) ::setenv(variable, path.c_str(), 1);
  ::setenv("DISPLAY", world.display().c_str(), 1);
  ::setenv("DBUS_SESSION_BUS_ADDRESS", "disabled:", 1);
  ::setenv("QT_LOGGING_RULES", "*=false", 1);
  for (const char* variable : {"WAYLAND_DISPLAY", "XDG_CURRENT_DESKTOP", "DESKTOP_SESSION"})
    ::unsetenv(variable);
}

void ProgramTest::TearDown() {
  menu.reset();
  fs::remove_all(folder);
}

void ProgramTest::StartMenu(std::vector<std::string> more) {
  std::vector<std::string> command = {QUILLMENU_PROGRAM};
  command.insert(command.end(), more.begin(), more.end());
  // The server copies a keyboard's map when the keyboard in use changes, here from its own to the test's;
  // that is a change of layout to every program, and is to be over before this one takes its keys.
  Tap(kShift);
  menu = world.Start(command);
  ASSERT_TRUE(
      Eventually([&] { return platform::AskLocalChannel(Channel(), R"({"ping":true})", 1s).ok(); }, 30s));
}

int ProgramTest::Quill(const std::string& words) {
  const std::string file = (folder / "said").string();
  const int status = std::system((QUILL_PROGRAM " " + words + " >'" + file + "' 2>&1 </dev/null").c_str());
  said = ReadFile(file).ValueOr("");
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

bool ProgramTest::CommandEnds() {
  // A command that touches no window; it is refused while another runs.
  return Eventually([this] { return Quill("trigger MenuItemStartWithMondayClick") == 0; });
}

int ProgramTest::StartAgain(const std::vector<std::string>& more) {
  // A shell tells the status, which a child process here does not.
  std::vector<std::string> command = {"sh", "-c", "\"$@\"; echo \"status $?\"", "sh", QUILLMENU_PROGRAM};
  command.insert(command.end(), more.begin(), more.end());
  const std::string status = world.Start(command)->WaitForLine("status ", 8s);
  return status == "(none)" ? -1 : std::stoi(status);
}

std::unique_ptr<ChildProcess> ProgramTest::StartTray() const {
  return world.Start({"trayer", "--edge", "bottom", "--align", "right", "--widthtype", "request", "--height",
                      "26", "--SetDockType", "true"});
}

std::optional<xcb_point_t> ProgramTest::TrayIcon() {
  const X11Connection& c = world.connection();
  const xcb_window_t icon = FindEmbedded(c, c.root(), "quillmenu");
  if (icon == XCB_NONE) return std::nullopt;
  const auto size = Reply(c.get(), xcb_get_geometry(c.get(), icon), xcb_get_geometry_reply);
  const auto place = Reply(c.get(), xcb_translate_coordinates(c.get(), icon, c.root(), 0, 0),
                           xcb_translate_coordinates_reply);
  // Before the tray has room for it an icon is a dot, or outside the screen.
  if (!size || !place || size->width < 8 || place->dst_x < 0 || place->dst_y < 0) return std::nullopt;
  return xcb_point_t{static_cast<std::int16_t>(place->dst_x + size->width / 2),
                     static_cast<std::int16_t>(place->dst_y + size->height / 2)};
}

void ProgramTest::Click(xcb_point_t place, std::uint8_t button) {
  xcb_connection_t* c = world.connection().get();
  xcb_test_fake_input(c, XCB_MOTION_NOTIFY, 0, XCB_CURRENT_TIME, world.connection().root(), place.x, place.y,
                      0);
  xcb_test_fake_input(c, XCB_BUTTON_PRESS, button, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
  xcb_test_fake_input(c, XCB_BUTTON_RELEASE, button, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
  world.connection().ServerTime();
}

bool ProgramTest::OpensMenu(std::uint8_t button) {
  std::optional<xcb_point_t> before;
  // The tray still moves its icons while the first ones come.
  const bool rests = Eventually([&] {
    const std::optional<xcb_point_t> now = TrayIcon();
    const bool same = now && before && now->x == before->x && now->y == before->y;
    before = now;
    return same;
  });
  if (!rests) return false;
  Click(*before, button);
  return MenusBecome(1);
}

bool ProgramTest::KeyboardIsTaken() {
  const X11Connection& c = world.connection();
  // Nobody else can try meanwhile, and fail because of this attempt.
  const ServerGrab alone(c.get());
  const auto grab = Reply(
      c.get(),
      xcb_grab_keyboard(c.get(), 0, c.root(), XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
      xcb_grab_keyboard_reply);
  if (grab && grab->status == XCB_GRAB_STATUS_SUCCESS) xcb_ungrab_keyboard(c.get(), XCB_CURRENT_TIME);
  return grab && grab->status == XCB_GRAB_STATUS_ALREADY_GRABBED;
}

bool ProgramTest::IsMenu(xcb_window_t window) {
  const X11Connection& c = world.connection();
  const auto facts =
      Reply(c.get(), xcb_get_window_attributes(c.get(), window), xcb_get_window_attributes_reply);
  if (!facts || facts->map_state != XCB_MAP_STATE_VIEWABLE || facts->override_redirect == 0) return false;
  const std::vector<std::uint32_t> types = c.Words(window, AtomOf(c, "_NET_WM_WINDOW_TYPE"));
  return c.Text(window, XCB_ATOM_WM_CLASS).find("quillmenu") != std::string::npos &&
         std::find(types.begin(), types.end(), AtomOf(c, "_NET_WM_WINDOW_TYPE_TOOLTIP")) == types.end();
}

std::size_t ProgramTest::OpenMenus() {
  const X11Connection& c = world.connection();
  std::size_t count = 0;
  for (const xcb_window_t window : ChildrenOf(c, c.root())) count += IsMenu(window);
  return count > 0 && !KeyboardIsTaken() ? 0 : count;
}

bool ProgramTest::MenusBecome(std::size_t count) {
  return Eventually([&] { return OpenMenus() == count; });
}

bool ProgramTest::IsThere(const std::string& title) {
  const X11Connection& c = world.connection();
  const std::vector<std::uint32_t> windows = c.Words(c.root(), c.atoms().netClientList);
  return std::any_of(windows.begin(), windows.end(), [&](xcb_window_t window) {
    return WindowTitle(c, window) == title && IsOnScreen(c, window);
  });
}

bool ProgramTest::Appears(const std::string& title) {
  return Eventually([&] { return IsThere(title); }, 8s);
}

bool ProgramTest::Disappears(const std::string& title) {
  return Eventually([&] { return !IsThere(title); }, 8s);
}

void ProgramTest::Tap(xcb_keysym_t key) {
  world.Press(key);
  world.Release(key);
}

void ProgramTest::Type(const std::string& letters) {
  for (const char letter : letters) Tap(static_cast<xcb_keysym_t>(letter));
}

void ProgramTest::PressChord(const std::vector<xcb_keysym_t>& held, xcb_keysym_t key) {
  for (const xcb_keysym_t one : held) world.Press(one);
  Tap(key);
  for (const xcb_keysym_t one : held) world.Release(one);
}

bool ProgramTest::SomebodyHas(const std::string& keys) {
  X11Connection& c = world.connection();
  const platform::KeyCombination wanted = platform::ParseKeyCombination(keys).value();
  const X11KeyMap map(c);
  const xcb_keycode_t code = map.ForName(wanted.key).value();
  const std::uint16_t modifiers = map.MaskFor(wanted).value();
  // The program cannot try for the key meanwhile and find that it is taken.
  const ServerGrab alone(c.get());
  const xcb_void_cookie_t cookie =
      xcb_grab_key_checked(c.get(), 0, c.root(), modifiers, code, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
  if (const XcbPointer<xcb_generic_error_t> error{xcb_request_check(c.get(), cookie)}) return true;
  xcb_ungrab_key(c.get(), code, c.root(), modifiers);
  return false;
}

void ProgramTest::PressHotKey(char letter) {
  const std::string keys = std::string("Control+Option+Shift+") + letter;
  EXPECT_TRUE(Eventually([&] { return SomebodyHas(keys); })) << keys;
  PressChord({kControl, kAlt, kShift}, static_cast<xcb_keysym_t>(letter));
}

std::string ProgramTest::TextOfBox() {
  if (!world.BecomesActive(kBoxTitle)) return {};
  const X11Connection& c = world.connection();
  const xcb_atom_t clipboard = c.atoms().clipboard;
  xcb_set_selection_owner(c.get(), XCB_NONE, clipboard, XCB_CURRENT_TIME);
  PressChord({kControl}, 'c');
  EXPECT_TRUE(Eventually([&] {
    const auto owner =
        Reply(c.get(), xcb_get_selection_owner(c.get(), clipboard), xcb_get_selection_owner_reply);
    return owner && owner->owner != XCB_NONE;
  })) << "the box did not copy its text";
  const std::string text = world.ClipboardAs("UTF8_STRING");
  Tap(kEscape);
  EXPECT_TRUE(Disappears(kBoxTitle));
  return text;
}

fs::path ProgramTest::Channel() const {
  return *platform::LocalChannelPath(folder / "root");
}

std::string ProgramTest::Maps() const {
  return ReadFile("/proc/" + std::to_string(menu->pid()) + "/maps").ValueOr("");
}

}  // namespace quill::ui
