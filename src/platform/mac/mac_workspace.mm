// Type-checked on Linux against GNUstep's headers and a declared shim; never run on macOS yet.
#import <AppKit/AppKit.h>

#include <string>
#include <system_error>

#include "platform/mac/mac_main_thread.h"
#include "platform/mac/mac_text.h"
#include "platform/mac/mac_workspace.h"
#include "platform/native_backend.h"

namespace quill::platform::mac {
namespace {

namespace fs = std::filesystem;

/// The main thread may be in a modal panel or in a menu; both end by the user's hand only.
constexpr JobLimits kLimits{std::chrono::seconds(5), std::chrono::seconds(10)};

/// Done on the main thread; `work` must own what it needs.
template <class Work>
Status<> OnMain(Work work) {
  const auto guarded = [work = std::move(work)]() -> Status<> {
    @autoreleasepool {
      return work();
    }
  };
  std::optional<Status<>> answer = CallOnMainThread(kLimits, guarded);
  return answer ? std::move(*answer) : Status<>(Failure{std::string("the system did not answer in time")});
}

Status<> Open(NSURL* url, const std::string& name) {
  if ([[NSWorkspace sharedWorkspace] openURL:url]) return Done();
  return Failure{"no program opens " + name};
}

/// The file's own address; nothing when there is no such file.
Result<NSURL*> UrlOf(const fs::path& file) {
  std::error_code error;
  NSString* path = fs::exists(file, error) ? ToNSString(fs::absolute(file, error).string()) : nil;
  if (!path) return Failure{file.string() + " does not exist"};
  return [NSURL fileURLWithPath:path];
}

}  // namespace

Status<> MacWorkspace::OpenUrl(std::string_view url) {
  return OnMain([raw = std::string(url)]() -> Status<> {
    NSString* text = ToNSString(raw);
    NSURL* parsed = text ? [NSURL URLWithString:text] : nil;
    // Newer systems escape what they do not like instead of refusing it.
    if (![parsed scheme] || ![[parsed absoluteString] isEqualToString:text]) {
      return Failure{raw + " is no address"};
    }
    return Open(parsed, raw);
  });
}

Status<> MacWorkspace::OpenFile(const fs::path& file) {
  return OnMain([file]() -> Status<> {
    const Result<NSURL*> url = UrlOf(file);
    return url.ok() ? Open(*url, file.string()) : Status<>(Failure{url.error()});
  });
}

Status<> MacWorkspace::Reveal(const fs::path& file) {
  return OnMain([file]() -> Status<> {
    const Result<NSURL*> url = UrlOf(file);
    if (!url.ok()) return Failure{url.error()};
    [[NSWorkspace sharedWorkspace] activateFileViewerSelectingURLs:@[ *url ]];
    return Done();
  });
}

}  // namespace quill::platform::mac

namespace quill::platform {

std::unique_ptr<Workspace> OpenWorkspace() {
  return std::make_unique<mac::MacWorkspace>();
}

}  // namespace quill::platform
