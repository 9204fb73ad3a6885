// Type-checked on Linux against GNUstep's headers and a declared shim; never run on macOS yet.
#include <CoreFoundation/CoreFoundation.h>
#import <Foundation/Foundation.h>
#include <IOKit/IOKitLib.h>

#include <optional>

#include "platform/mac/mac_desktop.h"
#include "platform/mac/mac_ref.h"
#include "platform/mac/mac_script.h"
#include "platform/mac/mac_target.h"
#include "platform/mac/mac_text.h"

namespace quill::platform::mac {
namespace {

using Value = MacRef<CFTypeRef, CFRelease>;
using Service = MacRef<io_service_t, IOObjectRelease>;

/// Nanoseconds since the last key or pointer event, from the first input system service.
std::optional<std::int64_t> IdleNanoseconds() {
  // The matching dictionary is released by the call that it is given to.
  const Service input(IOServiceGetMatchingService(MACH_PORT_NULL, IOServiceMatching("IOHIDSystem")));
  if (!input) return std::nullopt;
  const Value value(
      IORegistryEntryCreateCFProperty(input.get(), CFSTR("HIDIdleTime"), kCFAllocatorDefault, 0));
  if (!value || CFGetTypeID(value.get()) != CFNumberGetTypeID()) return std::nullopt;
  std::int64_t nanoseconds = 0;
  const auto number = static_cast<CFNumberRef>(value.get());
  if (!CFNumberGetValue(number, kCFNumberSInt64Type, &nanoseconds)) return std::nullopt;
  return nanoseconds;
}

}  // namespace

ScriptResult MacDesktop::RunScript(std::string_view script) {
  return RunAppleScript(script);
}

bool MacDesktop::ApplicationInstalled(std::string_view bundlePath) {
  @autoreleasepool {
    NSString* path = ToNSString(bundlePath);
    BOOL isFolder = NO;
    return path && [[NSFileManager defaultManager] fileExistsAtPath:path isDirectory:&isFolder] && isFolder;
  }
}

bool MacDesktop::OneNoteRunning() {
  return mac::OneNoteRunning();
}

std::int64_t MacDesktop::GetIdleSeconds() {
  const std::optional<std::int64_t> nanoseconds = IdleNanoseconds();
  return nanoseconds ? *nanoseconds >> 30 : -1;
}

}  // namespace quill::platform::mac
