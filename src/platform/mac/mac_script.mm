// Type-checked on Linux against GNUstep's headers and a declared shim; never run on macOS yet.
#import <Foundation/Foundation.h>

#include <string>

#include "platform/mac/mac_main_thread.h"
#include "platform/mac/mac_script.h"
#include "platform/mac/mac_script_errors.h"
#include "platform/mac/mac_text.h"

namespace quill::platform::mac {
namespace {

// The system gives up on an application's reply after two minutes and reports it as an error; the limit
// lies beyond that, so that it only passes when the script runner itself is stuck.
constexpr JobLimits kLimits{std::chrono::seconds(3), std::chrono::seconds(150)};

/// The error that the script runner left behind. It may fail without one.
ScriptResult FailureOf(NSDictionary* error) {
  NSNumber* number = [error objectForKey:NSAppleScriptErrorNumber];
  if (!number) return {ScriptProblem::NoAnswer, "AppleScript failed without a reason"};
  return ScriptFailure([number longValue], FromNSString([error objectForKey:NSAppleScriptErrorAppName]),
                       FromNSString([error objectForKey:NSAppleScriptErrorMessage]));
}

ScriptResult RunHere(const std::string& script) {
  @autoreleasepool {
    @try {
      NSString* source = ToNSString(script);
      if (!source) return {ScriptProblem::BadScript, "the script is not UTF-8"};
      NSDictionary* error = nil;
      NSAppleScript* runner = [[NSAppleScript alloc] initWithSource:source];
      if ([runner executeAndReturnError:&error]) return {};
      return FailureOf(error);
    } @catch (NSException* exception) {
      return {ScriptProblem::BadScript, FromNSString([exception reason])};
    }
  }
}

}  // namespace

ScriptResult RunAppleScript(std::string_view script) {
  auto result = CallOnMainThread(kLimits, [text = std::string(script)] { return RunHere(text); });
  return result ? std::move(*result) : ScriptResult{ScriptProblem::NoAnswer, "the main thread is busy"};
}

}  // namespace quill::platform::mac
