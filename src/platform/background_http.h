#pragma once
#include <functional>

#include "platform/http.h"

namespace quill::platform {

/// Requests that nobody waits for. Command thread.
class BackgroundHttp {
 public:
  using Done = std::function<void(Result<HttpResponse, HttpFailure>)>;

  virtual ~BackgroundHttp() = default;

  /// Sends the request as `Http::Send` does and returns at once. `done` is called once on the command thread,
  /// never from within `Send`; it is dropped when the program ends first.
  virtual void Send(HttpRequest request, Done done) = 0;
};

}  // namespace quill::platform
