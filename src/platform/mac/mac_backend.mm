// Type-checked on Linux against GNUstep's headers and a declared shim; never run on macOS yet.
#include "platform/mac/mac_backend.h"
#include "platform/mac/mac_target.h"

namespace quill::platform::mac {

MacBackend::MacBackend() {
  m_pasteboard.OnSettle([] { WaitUntilOneNoteAnswers(std::chrono::seconds(2)); });
}

}  // namespace quill::platform::mac
