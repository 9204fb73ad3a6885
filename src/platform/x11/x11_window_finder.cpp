#include "platform/x11/x11_window_finder.h"

#include <unistd.h>

#include <algorithm>

namespace quill::platform::x11 {
namespace {

char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool ContainsIgnoringCase(std::string_view text, std::string_view part) {
  return std::search(text.begin(), text.end(), part.begin(), part.end(),
                     [](char a, char b) { return Lower(a) == Lower(b); }) != text.end();
}

bool IsOurs(const X11Connection& connection, xcb_window_t window) {
  const std::vector<std::uint32_t> pid = connection.Words(window, connection.atoms().netWmPid);
  return !pid.empty() && pid[0] == static_cast<std::uint32_t>(getpid());
}

bool Fits(const X11Connection& connection, xcb_window_t window, std::string_view pattern) {
  return (ContainsIgnoringCase(WindowTitle(connection, window), pattern) ||
          ContainsIgnoringCase(connection.Text(window, XCB_ATOM_WM_CLASS), pattern)) &&
         !IsOurs(connection, window);
}

/// All managed windows, topmost first where the window manager tells the order.
std::vector<xcb_window_t> ManagedWindows(const X11Connection& connection) {
  std::vector<xcb_window_t> windows =
      connection.Words(connection.root(), connection.atoms().netClientListStacking);
  if (windows.empty()) windows = connection.Words(connection.root(), connection.atoms().netClientList);
  std::reverse(windows.begin(), windows.end());
  return windows;
}

}  // namespace

std::string WindowTitle(const X11Connection& connection, xcb_window_t window) {
  std::string title = connection.Text(window, connection.atoms().netWmName);
  return title.empty() ? connection.Text(window, XCB_ATOM_WM_NAME) : title;
}

xcb_window_t ActiveWindow(const X11Connection& connection) {
  const std::vector<std::uint32_t> active =
      connection.Words(connection.root(), connection.atoms().netActiveWindow);
  return active.empty() ? XCB_NONE : active[0];
}

xcb_window_t FindWindow(const X11Connection& connection, std::string_view pattern) {
  if (pattern.empty()) return XCB_NONE;
  const xcb_window_t active = ActiveWindow(connection);
  if (active != XCB_NONE && Fits(connection, active, pattern)) return active;
  for (const xcb_window_t window : ManagedWindows(connection)) {
    if (Fits(connection, window, pattern)) return window;
  }
  return XCB_NONE;
}

}  // namespace quill::platform::x11
