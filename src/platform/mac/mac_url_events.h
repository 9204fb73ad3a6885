#pragma once
#include <memory>

#include "platform/hot_keys.h"

namespace quill::platform::mac {

/// Receives the system's get-URL events. Made, used and destroyed on the main thread, after the
/// application object and before its event loop starts: the event that a link starts the program with
/// arrives first of all. Links that come before `OnUrl` are kept for it.
class MacUrlEvents final : public UrlEvents {
 public:
  MacUrlEvents();
  ~MacUrlEvents() override;

  void OnUrl(std::function<void(std::string url)> handler) override;

 private:
  struct Parts;
  std::unique_ptr<Parts> m_parts;
};

}  // namespace quill::platform::mac
