#pragma once
#include "platform/x11/x11_key_map.h"

namespace quill::platform::x11 {

/// True when keys can be sent on this display (extension XTEST).
bool CanSendKeys(const X11Connection& connection);

/// True when another program has the keyboard to itself (an open menu, a screen locker): keys sent now would
/// go there whatever has the focus.
bool KeyboardIsGrabbed(const X11Connection& connection);

/// Presses and releases a chord. All its events go out together, so no key stays down. To be called with the
/// server grabbed, right after the checks.
void SendChord(const X11Connection& connection, const KeyChord& chord);

}  // namespace quill::platform::x11
