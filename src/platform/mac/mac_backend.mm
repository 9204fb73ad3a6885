// Type-checked on Linux against GNUstep's headers and a declared shim; never run on macOS yet.
#import <Foundation/Foundation.h>

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

// OneNote is found by its bundle identifier.
const bool kFindsWindowsByTitle = false;

std::vector<std::string> PreferredLanguages() {
  std::vector<std::string> languages;
  @autoreleasepool {
    for (NSString* language in [NSLocale preferredLanguages]) languages.emplace_back([language UTF8String]);
  }
  return languages;
}

}  // namespace quill::platform
