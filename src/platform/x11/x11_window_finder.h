#pragma once
#include <string_view>

#include "platform/x11/x11_connection.h"

namespace quill::platform::x11 {

/// A window's title as the user reads it; empty when it has none.
std::string WindowTitle(const X11Connection& connection, xcb_window_t window);

/// The window that has the window manager's attention; `XCB_NONE` without one.
xcb_window_t ActiveWindow(const X11Connection& connection);

/// Finds the application's window: a managed window whose title or class contains `pattern` (capitals do
/// not matter, an empty pattern finds nothing) and that is not this program's own. The active one if it
/// fits, otherwise the topmost. `XCB_NONE` when there is none.
xcb_window_t FindWindow(const X11Connection& connection, std::string_view pattern);

}  // namespace quill::platform::x11
