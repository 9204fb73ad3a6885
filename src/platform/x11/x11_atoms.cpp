#include "platform/x11/x11_atoms.h"

#include <array>
#include <string_view>

#include "platform/x11/xcb_reply.h"

namespace quill::platform::x11 {
namespace {

struct Name {
  xcb_atom_t X11Atoms::*member;
  std::string_view text;
};

constexpr Name kNames[] = {
    {&X11Atoms::clipboard, "CLIPBOARD"},
    {&X11Atoms::clipboardManager, "CLIPBOARD_MANAGER"},
    {&X11Atoms::targets, "TARGETS"},
    {&X11Atoms::multiple, "MULTIPLE"},
    {&X11Atoms::timestamp, "TIMESTAMP"},
    {&X11Atoms::saveTargets, "SAVE_TARGETS"},
    {&X11Atoms::deleteTarget, "DELETE"},
    {&X11Atoms::atomPair, "ATOM_PAIR"},
    {&X11Atoms::incr, "INCR"},
    {&X11Atoms::null, "NULL"},
    {&X11Atoms::utf8String, "UTF8_STRING"},
    {&X11Atoms::textPlain, "text/plain"},
    {&X11Atoms::textPlainUtf8, "text/plain;charset=utf-8"},
    {&X11Atoms::text, "TEXT"},
    {&X11Atoms::textHtml, "text/html"},
    {&X11Atoms::imagePng, "image/png"},
    {&X11Atoms::wmProtocols, "WM_PROTOCOLS"},
    {&X11Atoms::netWmPing, "_NET_WM_PING"},
    {&X11Atoms::netWmName, "_NET_WM_NAME"},
    {&X11Atoms::netWmPid, "_NET_WM_PID"},
    {&X11Atoms::netActiveWindow, "_NET_ACTIVE_WINDOW"},
    {&X11Atoms::netClientList, "_NET_CLIENT_LIST"},
    {&X11Atoms::netClientListStacking, "_NET_CLIENT_LIST_STACKING"},
    {&X11Atoms::stampProperty, "QUILL_STAMP"},
    {&X11Atoms::transferProperty, "QUILL_TRANSFER"},
};

}  // namespace

X11Atoms X11Atoms::Intern(xcb_connection_t* connection) {
  std::array<xcb_intern_atom_cookie_t, std::size(kNames)> cookies;
  for (std::size_t i = 0; i < cookies.size(); ++i) {
    cookies[i] = xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(kNames[i].text.size()),
                                 kNames[i].text.data());
  }
  X11Atoms atoms{};
  for (std::size_t i = 0; i < cookies.size(); ++i) {
    const auto reply = Reply(connection, cookies[i], xcb_intern_atom_reply);
    atoms.*kNames[i].member = reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
  }
  return atoms;
}

}  // namespace quill::platform::x11
