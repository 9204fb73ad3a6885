#pragma once
#include <xcb/xcb.h>

namespace quill::platform::x11 {

/// The atoms this backend speaks of, interned once for a connection in a single round trip.
struct X11Atoms {
  xcb_atom_t clipboard, clipboardManager, targets, multiple, timestamp, saveTargets, deleteTarget, atomPair,
      incr, null;
  xcb_atom_t utf8String, textPlain, textPlainUtf8, text, textHtml, imagePng;
  xcb_atom_t wmProtocols, netWmPing, netWmName, netWmPid, netActiveWindow, netClientList,
      netClientListStacking;
  xcb_atom_t stampProperty, transferProperty;

  static X11Atoms Intern(xcb_connection_t* connection);
};

}  // namespace quill::platform::x11
