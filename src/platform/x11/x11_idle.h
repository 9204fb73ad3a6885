#pragma once
#include <cstdint>

#include "platform/x11/x11_connection.h"

namespace quill::platform::x11 {

/// Whole seconds since the last key or pointer event; −1 without the screen-saver extension.
std::int64_t GetIdleSeconds(const X11Connection& connection);

}  // namespace quill::platform::x11
