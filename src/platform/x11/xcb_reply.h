#pragma once
#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>

namespace quill::platform::x11 {

struct FreeMemory {
  void operator()(void* memory) const { std::free(memory); }
};

/// A reply, an event or an error that the X library has allocated.
template <class T>
using XcbPointer = std::unique_ptr<T, FreeMemory>;

using XcbEvent = XcbPointer<xcb_generic_event_t>;

/// Waits for the reply to a request; nothing when the server answered with an error.
template <class Cookie, class T>
XcbPointer<T> Reply(xcb_connection_t* connection, Cookie cookie,
                    T* (*take)(xcb_connection_t*, Cookie, xcb_generic_error_t**)) {
  return XcbPointer<T>(take(connection, cookie, nullptr));
}

/// The kind of an event, whether a server or another client sent it; 0 is an error.
inline int EventType(const xcb_generic_event_t& event) {
  return event.response_type & 0x7f;
}

/// An event as its own type; only after a look at `EventType`.
template <class T>
const T& As(const xcb_generic_event_t& event) {
  return reinterpret_cast<const T&>(event);
}

}  // namespace quill::platform::x11
