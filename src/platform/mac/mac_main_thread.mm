// Type-checked on Linux against GNUstep's headers and a declared shim; never run on macOS yet.
#import <Foundation/Foundation.h>
#include <dispatch/dispatch.h>

#include "platform/mac/mac_main_thread.h"

namespace quill::platform::mac {

bool OnMainThread() {
  return [NSThread isMainThread];
}

void PostToMainThread(std::function<void()> work) {
  dispatch_async(dispatch_get_main_queue(), ^{
    work();
  });
}

}  // namespace quill::platform::mac
