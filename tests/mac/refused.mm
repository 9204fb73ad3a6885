// Must not compile: the pasteboard has no such method.
#import <AppKit/AppKit.h>

void Misspelt() {
  [[NSPasteboard generalPasteboard] clearContentz];
}
