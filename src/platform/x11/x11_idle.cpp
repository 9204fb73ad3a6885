#include "platform/x11/x11_idle.h"

#include <xcb/screensaver.h>

namespace quill::platform::x11 {

std::int64_t GetIdleSeconds(const X11Connection& connection) {
  xcb_connection_t* c = connection.get();
  const xcb_query_extension_reply_t* extension = xcb_get_extension_data(c, &xcb_screensaver_id);
  if (!extension || !extension->present) return -1;
  const auto reply =
      Reply(c, xcb_screensaver_query_info(c, connection.root()), xcb_screensaver_query_info_reply);
  return reply ? reply->ms_since_user_input / 1000 : -1;
}

}  // namespace quill::platform::x11
