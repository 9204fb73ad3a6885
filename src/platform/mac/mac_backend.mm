// Type-checked on Linux against GNUstep's headers and a declared shim; never run on macOS yet.
#include "platform/mac/mac_backend.h"
#include "platform/mac/mac_target.h"

namespace quill::platform::mac {

MacBackend::MacBackend() {
  m_pasteboard.OnSettle([this] {
    const bool answered = WaitUntilOneNoteAnswers(std::chrono::seconds(2));
    if (m_note) m_note(answered ? "OneNote has dealt with its keys" : "OneNote did not answer within 2 s");
  });
}

bool MacBackend::TargetIsActive() {
  return OneNoteIsActive();
}

}  // namespace quill::platform::mac

namespace quill::platform {

Result<std::unique_ptr<NativeBackend>> OpenNativeBackend(std::function<std::string()>) {
  return std::unique_ptr<NativeBackend>(std::make_unique<mac::MacBackend>());
}

}  // namespace quill::platform
