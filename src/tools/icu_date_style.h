#pragma once
#include <chrono>
#include <memory>

#include <unicode/locid.h>
#include <unicode/timezone.h>

#include "tools/date_text.h"

namespace quill::tools {

/// The style's locale, or the system's.
inline icu::Locale LocaleOf(const DateStyle& style) {
  return style.locale.empty() ? icu::Locale::getDefault() : icu::Locale(style.locale.c_str());
}

/// The style's time zone, or the system's. Never null; an unknown name is UTC.
inline std::unique_ptr<icu::TimeZone> ZoneOf(const DateStyle& style) {
  return std::unique_ptr<icu::TimeZone>(
      style.zone.empty() ? icu::TimeZone::createDefault()
                         : icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(style.zone)));
}

/// A moment as ICU counts it: milliseconds since 1970.
inline UDate IcuDate(std::chrono::system_clock::time_point moment) {
  return std::chrono::duration<double, std::milli>(moment.time_since_epoch()).count();
}

/// A text as UTF-8.
inline std::string Utf8Of(const icu::UnicodeString& text) {
  std::string bytes;
  return text.toUTF8String(bytes);
}

inline icu::UnicodeString UnicodeOf(std::string_view text) {
  return icu::UnicodeString::fromUTF8({text.data(), static_cast<int32_t>(text.size())});
}

}  // namespace quill::tools
