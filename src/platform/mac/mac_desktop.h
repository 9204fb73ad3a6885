#pragma once
#include "platform/desktop.h"

namespace quill::platform::mac {

/// The desktop of a macOS session. Scripts are run as they stand by the system's script runner.
class MacDesktop final : public Desktop {
 public:
  ScriptResult RunScript(std::string_view script) override;
  bool ApplicationInstalled(std::string_view bundlePath) override;
  bool OneNoteRunning() override;
  /// Reads 7 % low: a second is taken as 2^30 ns.
  std::int64_t GetIdleSeconds() override;
};

}  // namespace quill::platform::mac
