// What AppKit and Foundation declare on macOS and GNUstep's headers leave out. Declarations only, for the
// type check; included ahead of every file that is checked.
#pragma once
#import <AppKit/AppKit.h>

#include <cstdint>

extern NSString* const NSAppleScriptErrorNumber;
extern NSString* const NSAppleScriptErrorMessage;
extern NSString* const NSAppleScriptErrorAppName;

typedef NSUInteger NSAppleEventSendOptions;
enum : NSAppleEventSendOptions {
  NSAppleEventSendWaitForReply = 3,
  NSAppleEventSendNeverInteract = 0x10,
};

@interface NSAppleEventDescriptor (Shim)
@property(readonly, copy) NSString* stringValue;
+ (NSAppleEventDescriptor*)descriptorWithProcessIdentifier:(pid_t)processIdentifier;
+ (NSAppleEventDescriptor*)appleEventWithEventClass:(std::uint32_t)eventClass
                                            eventID:(std::uint32_t)eventID
                                   targetDescriptor:(NSAppleEventDescriptor*)target
                                           returnID:(std::int16_t)returnID
                                      transactionID:(std::int32_t)transactionID;
- (NSAppleEventDescriptor*)paramDescriptorForKeyword:(std::uint32_t)keyword;
- (NSAppleEventDescriptor*)sendEventWithOptions:(NSAppleEventSendOptions)options
                                        timeout:(NSTimeInterval)seconds
                                          error:(NSError**)error;
@end

@interface NSAppleScript (Shim)
- (instancetype)initWithSource:(NSString*)source;
- (NSAppleEventDescriptor*)executeAndReturnError:(NSDictionary**)error;
@end

@interface NSAppleEventManager (Shim)
+ (NSAppleEventManager*)sharedAppleEventManager;
- (void)setEventHandler:(id)handler
            andSelector:(SEL)selector
          forEventClass:(std::uint32_t)eventClass
             andEventID:(std::uint32_t)eventID;
- (void)removeEventHandlerForEventClass:(std::uint32_t)eventClass andEventID:(std::uint32_t)eventID;
@end

@interface NSPasteboard (Shim)
@property(readonly, copy) NSArray* pasteboardItems;
- (NSInteger)clearContents;
- (BOOL)writeObjects:(NSArray*)objects;
@end

@interface NSWorkspace (Shim)
- (void)activateFileViewerSelectingURLs:(NSArray*)fileURLs;
@end
