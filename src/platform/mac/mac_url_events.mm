// Type-checked on Linux against GNUstep's headers and a declared shim; never run on macOS yet.
#import <AppKit/AppKit.h>

#include <utility>
#include <vector>

#include "platform/mac/four_chars.h"
#include "platform/mac/mac_text.h"
#include "platform/mac/mac_url_events.h"
#include "platform/native_backend.h"

namespace {

constexpr auto kGetUrl = quill::platform::mac::FourChars("GURL");  // event class and event alike
constexpr auto kDirectObject = quill::platform::mac::FourChars("----");

}  // namespace

/// The object that the system's event manager calls. Holds no C++ state but the function to pass links to.
@interface QuillUrlReceiver : NSObject
- (instancetype)initWithSink:(std::function<void(std::string)>)sink;
- (void)install;
- (void)remove;
@end

@implementation QuillUrlReceiver {
  std::function<void(std::string)> m_sink;
}

- (instancetype)initWithSink:(std::function<void(std::string)>)sink {
  self = [super init];
  if (self) m_sink = std::move(sink);
  return self;
}

- (void)install {
  [[NSAppleEventManager sharedAppleEventManager] setEventHandler:self
                                                     andSelector:@selector(handle:withReply:)
                                                   forEventClass:kGetUrl
                                                      andEventID:kGetUrl];
}

// The toolkit installs a handler of its own while the application launches, and that one passes links
// through a URL class which empties "qvar://" links. So ours is installed again after it.
- (void)launching:(NSNotification*)notification {
  (void)notification;
  [self install];
}

- (void)handle:(NSAppleEventDescriptor*)event withReply:(NSAppleEventDescriptor*)reply {
  (void)reply;
  NSString* url = [[event paramDescriptorForKeyword:kDirectObject] stringValue];
  if (url) m_sink(quill::platform::mac::FromNSString(url));
}

- (void)remove {
  [[NSNotificationCenter defaultCenter] removeObserver:self];
  [[NSAppleEventManager sharedAppleEventManager] removeEventHandlerForEventClass:kGetUrl andEventID:kGetUrl];
}

@end

namespace quill::platform::mac {

struct MacUrlEvents::Parts {
  std::function<void(std::string)> handler;
  std::vector<std::string> early;
  QuillUrlReceiver* receiver = nil;

  void Receive(std::string url) {
    if (handler) {
      handler(std::move(url));
    } else {
      early.push_back(std::move(url));
    }
  }
};

MacUrlEvents::MacUrlEvents() : m_parts(std::make_unique<Parts>()) {
  Parts* parts = m_parts.get();
  parts->receiver =
      [[QuillUrlReceiver alloc] initWithSink:[parts](std::string url) { parts->Receive(std::move(url)); }];
  [parts->receiver install];
  [[NSNotificationCenter defaultCenter] addObserver:parts->receiver
                                           selector:@selector(launching:)
                                               name:NSApplicationWillFinishLaunchingNotification
                                             object:nil];
}

MacUrlEvents::~MacUrlEvents() {
  [m_parts->receiver remove];
}

void MacUrlEvents::OnUrl(std::function<void(std::string url)> handler) {
  m_parts->handler = std::move(handler);
  if (!m_parts->handler) return;
  for (std::string& url : std::exchange(m_parts->early, {})) m_parts->handler(std::move(url));
}

}  // namespace quill::platform::mac

namespace quill::platform {

std::unique_ptr<UrlEvents> OpenUrlEvents() {
  return std::make_unique<mac::MacUrlEvents>();
}

}  // namespace quill::platform
