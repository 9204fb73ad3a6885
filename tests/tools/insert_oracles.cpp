#include "tools/insert_oracles.h"

#include <unicode/calendar.h>
#include <unicode/dtfmtsym.h>

#include <memory>

#include "content/unicode_text.h"

namespace quill::oracle {
namespace {

using std::string;

std::vector<string> ShortWeekdays(const icu::Locale& locale) {
  UErrorCode status = U_ZERO_ERROR;
  const icu::DateFormatSymbols symbols(locale, status);
  int32_t count = 0;
  const icu::UnicodeString* names = symbols.getShortWeekdays(count);
  std::vector<string> days;
  for (int32_t i = 1; i < count; ++i) {
    string name;
    days.push_back(names[i].toUTF8String(name));
  }
  return days;
}

string HeaderCell(const string& name) {
  return " <th style=\"background-color:#acc8cc;\">" + name + "</th>";
}

string Row(const string& cells) {
  return "<tr>" + cells + "</tr>";
}

bool IsSpace(char16_t c) {
  return c == u' ' || c == u'\t' || c == u'\n' || c == u'\v' || c == u'\f' || c == u'\r';
}

}  // namespace

string CreateCalendar(int year, int month, tools::WeekStart weekStart, const tools::DateStyle& style) {
  const icu::Locale locale(style.locale.c_str());
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<icu::Calendar> calendar(
      icu::Calendar::createInstance(icu::TimeZone::getGMT()->clone(), locale, status));
  calendar->clear();
  calendar->set(year, month - 1, 1);
  const int weekday = calendar->get(UCAL_DAY_OF_WEEK, status);
  const int days = calendar->getActualMaximum(UCAL_DAY_OF_MONTH, status);
  const std::vector<string> symbols = ShortWeekdays(locale);

  string header;
  int offset = 0;
  if (weekStart == tools::WeekStart::Monday) {
    offset = weekday == 1 ? 6 : weekday - 2;
    for (std::size_t i = 1; i < symbols.size(); ++i) header += HeaderCell(symbols[i]);
    header += HeaderCell(symbols[0]);
  } else {
    offset = weekday - 1;
    for (const string& symbol : symbols) header += HeaderCell(symbol);
  }
  header = Row(header);

  string blanks;
  for (int i = 0; i < 7; ++i) blanks += "<td><p>&#160;</p><p>&#160;</p></td>";
  const int cells = offset + days > 35 ? 42 : 35;
  string body;
  int day = 0;
  for (int i = 0; i < cells; ++i) {
    if (i % 7 == 0) body = body.empty() ? "<tr>" : body + "</tr><tr>" + blanks + "</tr><tr>";
    const bool isOutside = i < offset || i >= offset + days;
    body += isOutside ? "<td><p><b></b></p></td>" : "<td><p><b>" + std::to_string(++day) + "</b></p></td>";
  }
  body = body + "</tr><tr>" + blanks + "</tr>";
  return "<h2>" + std::to_string(year) + " - " + std::to_string(month) + "</h2><table border=\"1\">" +
         header + body + "</table>";
}

string CreateCalendarAnnual(int year, tools::WeekStart weekStart, const tools::DateStyle& style) {
  string result;
  for (int month = 1; month <= 12; ++month)
    result = result + "\n" + CreateCalendar(year, month, weekStart, style);
  return result;
}

string FillDatePlaceholders(string html, std::chrono::system_clock::time_point moment,
                            const tools::DateStyle& style) {
  constexpr std::pair<const char*, const char*> kReplacements[] = {
      {"&lt;&lt;Date&gt;&gt;", "yyyy-MM-dd"}, {"&lt;&lt;DateTime&gt;&gt;", "yyyy-MM-dd HH:mm:ss"},
      {"&lt;&lt;Year&gt;&gt;", "yyyy"},       {"&lt;&lt;Month&gt;&gt;", "MM"},
      {"&lt;&lt;MonthName&gt;&gt;", "MMM"},   {"&lt;&lt;TimeZone&gt;&gt;", "z"},
      {"&lt;&lt;UTCDateTime&gt;&gt;", "zzzz"}};
  for (const auto& [placeholder, pattern] : kReplacements) {
    const string text = tools::FormatDate(pattern, moment, style);
    for (std::size_t at = 0; (at = html.find(placeholder, at)) != string::npos; at += text.size())
      html.replace(at, std::string_view(placeholder).size(), text);
  }
  return html;
}

string ClearExtraSpaces(std::string_view text) {
  const std::u16string units = content::ToUtf16(text);
  const std::size_t length = units.size();
  std::u16string result;
  for (std::size_t i = 0; i < length; ++i) {
    if (units[i] == u' ') {
      if ((i == 0 || units[i - 1] >= 128) && i + 1 < length && units[i + 1] >= 128) continue;
      if (i + 2 < length && (units[i + 1] == 10 || units[i + 1] == 13) && units[i + 2] < 128) continue;
    }
    result = result + units[i];
  }
  return content::ToUtf8(result);
}

string MergeAsParagraph(std::string_view text) {
  const std::u16string units = content::ToUtf16(text);
  const auto length = static_cast<std::ptrdiff_t>(units.size());
  const auto at = [&](std::ptrdiff_t i) { return units[static_cast<std::size_t>(i)]; };
  std::u16string result;
  for (std::ptrdiff_t i = 0; i < length;) {
    const char16_t c = at(i);
    if (c == 10) {
      i += 1;
    } else if (c == 13) {
      if (i > 1 && at(i - 2) == 13) {
        result += u'\n';
        i += 2;
      } else if (i < length - 2 && at(i + 2) == 13) {
        result += u'\n';
        i += 2;
      } else if (i > 0 && IsSpace(at(i - 1))) {
        i += 1;
      } else if (i < length - 2 && IsSpace(at(i + 2))) {
        i += 1;
      } else {
        result += u' ';
        i += 1;
      }
    } else if ((c == u'.' || c == u'!' || c == u'。' || c == u'！') && i < length - 1 && IsSpace(at(i + 1))) {
      result += c;
      result += u'\n';
      i += 1;
    } else {
      result += c;
      i += 1;
    }
  }
  return content::ToUtf8(result);
}

string ImageTable(std::span<const tools::ImageEntry> entries, bool isHorizontal, bool hasNames) {
  string html =
      "<html><head><meta http-equiv='Content-Type' content='text/html; charset=utf-8'></head><body><table>";
  string pictures;
  string names;
  for (const tools::ImageEntry& entry : entries) {
    pictures += "<td><img width='480' src='" + entry.dataUri + "'/></td>";
    names += "<td align='center'>" + entry.name + "</td>";
    string cell = "<td><img src=\"" + entry.dataUri + "\"></td>";
    if (hasNames) cell += "<td>" + entry.name + "</td>";
    if (!isHorizontal) html += Row(cell);
  }
  if (isHorizontal) html += hasNames ? Row(pictures) + Row(names) : Row(pictures);
  return html + "</table></body></html>";
}

}  // namespace quill::oracle
