#pragma once
#import <Foundation/Foundation.h>

#include <string>
#include <string_view>

namespace quill::platform::mac {

/// UTF-8 as an NSString, zero bytes included; nil when it is not UTF-8. Only for Objective-C++ files.
inline NSString* ToNSString(std::string_view text) {
  return [[NSString alloc] initWithBytes:text.data() length:text.size() encoding:NSUTF8StringEncoding];
}

/// The UTF-8 of an NSString, zero bytes included; empty for nil.
inline std::string FromNSString(NSString* text) {
  NSData* bytes = [text dataUsingEncoding:NSUTF8StringEncoding];
  return bytes ? std::string(static_cast<const char*>(bytes.bytes), bytes.length) : std::string();
}

}  // namespace quill::platform::mac
