#pragma once
#include "platform/mac/mac_desktop.h"
#include "platform/mac/mac_pasteboard.h"
#include "platform/native_backend.h"

namespace quill::platform::mac {

/// Desktop and pasteboard of macOS. Used from the command thread.
class MacBackend final : public NativeBackend {
 public:
  MacBackend();

  std::string_view name() const override { return "mac"; }
  Desktop& desktop() override { return m_desktop; }
  Pasteboard& pasteboard() override { return m_pasteboard; }
  bool TargetIsActive() override;
  void OnNote(std::function<void(std::string_view)> sink) override { m_note = std::move(sink); }

  /// Ends what the command thread waits for, for good. Called when the program quits, from any thread.
  void Stop() override { m_pasteboard.Stop(); }

 private:
  std::function<void(std::string_view)> m_note;
  MacDesktop m_desktop;
  MacPasteboard m_pasteboard;
};

}  // namespace quill::platform::mac
