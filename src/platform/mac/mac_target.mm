// Type-checked on Linux against GNUstep's headers and a declared shim; never run on macOS yet.
#import <AppKit/AppKit.h>

#include "platform/mac/four_chars.h"
#include "platform/mac/mac_target.h"

namespace quill::platform::mac {
namespace {

constexpr NSInteger kAppleEventTimedOut = -1712;

/// The running OneNote, or nil. `NSRunningApplication` may be asked on any thread; the list that
/// `NSWorkspace` keeps is only brought up to date by the main run loop.
NSRunningApplication* OneNote() {
  for (NSRunningApplication* application in
       [NSRunningApplication runningApplicationsWithBundleIdentifier:@"com.microsoft.onenote.mac"]) {
    if (![application isTerminated]) return application;
  }
  return nil;
}

/// The event that does nothing: applications answer it without a handler of their own.
NSAppleEventDescriptor* NoOperation(pid_t process) {
  return [NSAppleEventDescriptor
      appleEventWithEventClass:FourChars("ascr")
                       eventID:FourChars("noop")
              targetDescriptor:[NSAppleEventDescriptor descriptorWithProcessIdentifier:process]
                      returnID:-1
                 transactionID:0];
}

}  // namespace

bool OneNoteRunning() {
  @autoreleasepool {
    return OneNote() != nil;
  }
}

bool OneNoteIsActive() {
  @autoreleasepool {
    return [OneNote() isActive];
  }
}

bool WaitUntilOneNoteAnswers(std::chrono::milliseconds deadline) {
  @autoreleasepool {
    NSRunningApplication* application = OneNote();
    if (!application) return false;
    NSError* error = nil;
    const NSAppleEventSendOptions options = NSAppleEventSendWaitForReply | NSAppleEventSendNeverInteract;
    const NSTimeInterval seconds = std::chrono::duration<double>(deadline).count();
    NSAppleEventDescriptor* event = NoOperation([application processIdentifier]);
    return [event sendEventWithOptions:options timeout:seconds error:&error] ||
           [error code] != kAppleEventTimedOut;
  }
}

}  // namespace quill::platform::mac
