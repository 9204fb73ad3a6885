#include "tools/history_time.h"

#include "tools/icu_date_style.h"

namespace quill::tools {

std::string HistoryTime(std::chrono::system_clock::time_point moment, const DateStyle& style) {
  UErrorCode status = U_ZERO_ERROR;
  icu::Locale locale = LocaleOf(style);
  locale.setKeywordValue("calendar", "gregorian", status);
  locale.setKeywordValue("numbers", "latn", status);
  const std::string name = U_SUCCESS(status) ? locale.getName() : style.locale;
  return FormatDate("YYYY-MM-dd HH:mm:ss", moment, {name, style.zone});
}

}  // namespace quill::tools
