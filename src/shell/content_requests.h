#pragma once
#include <chrono>
#include <cstdint>
#include <memory>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "tools/image_table.h"
#include "tools/table_to_text.h"
#include "tools/text_to_table.h"
#include "tools/word_count.h"

namespace quill::shell {

// The dialogs of the content tools. A command waits for each of them (`platform::RunDialog`).

/// A copy of a table, or of its beginning, for a dialog to show: its document element is the table.
using TableCopy = std::shared_ptr<const pugi::xml_document>;

/// `MWinTableStyle`: the row of `tools::kTableStyles` that a table shall get.
struct TableStyleRequest {
  using Answer = std::int64_t;
  TableCopy table;            ///< the first rows, for the preview
  std::int64_t selected = 0;  ///< the row chosen last; any number
};

/// What stands between the cells of a table that becomes text.
struct TableTextChoice {
  tools::TableTextMode mode = tools::TableTextMode::TwoParagraphs;
  std::string separator;  ///< of the mode `Other`; may be empty
};

/// `MWinTable2Text`: shows the table's text and keeps it on the clipboard while it is open. The answer is
/// what was chosen last, however the window was closed.
struct Table2TextRequest {
  using Answer = TableTextChoice;
  TableCopy table;  ///< the whole table
  TableTextChoice remembered;
};

/// How a text is cut into the cells of a table.
struct TextTableChoice {
  tools::TextTableMode mode = tools::TextTableMode::Paragraphs;
  std::string separator;  ///< of the mode `Other`; may be empty
  std::string columns;    ///< the two size fields as they were typed
  std::string rows;
};

/// `MWinText2Table`: what table the text becomes.
struct Text2TableRequest {
  using Answer = TextTableChoice;
  std::string text;            ///< as `tools::TextToTableSource` gives it
  TextTableChoice remembered;  ///< mode and separator only
};

/// `MWinWordCount`: a list of figures to be looked at and copied.
struct CountRequest {
  using Answer = std::monostate;
  std::string_view titleKey;
  std::vector<tools::CountRow> rows;
};

/// The patterns of inserted dates and times (Unicode date patterns, UTS #35).
struct DateTimeFormats {
  std::string date;
  std::string time;
};

/// `MWinDateTimeFormat`: asks for the two patterns. Neither is empty in the answer.
struct DateTimeFormatRequest {
  using Answer = DateTimeFormats;
  DateTimeFormats present;
  std::chrono::system_clock::time_point now;  ///< the moment for the previews
};

/// A day, and whether the calendar of its month or of its year is wanted.
struct CalendarChoice {
  enum class Span { Month, Year };
  std::chrono::year_month_day day;  ///< Gregorian, in the local time zone
  Span span = Span::Month;
};

/// `MWinCalendar`: asks for a day.
struct CalendarRequest {
  using Answer = CalendarChoice;
  std::chrono::year_month_day today;
  bool startsWithMonday = false;  ///< the first day of the week in the picker
};

/// Pictures in the order of the table that they become.
struct ImageTableChoice {
  std::vector<std::string> paths;  ///< files, as `tools::ExpandPictures` gives them; never empty in an answer
  tools::ImageTableStyle style;
};

/// `MWinImageTable`: asks for pictures, their order, and how they are laid out.
struct ImageTableRequest {
  using Answer = ImageTableChoice;
  tools::ImageTableStyle remembered;
};

/// `MWinImageOCRText`: a recognised text to be tidied and copied.
struct ImageTextRequest {
  using Answer = std::monostate;
  std::string text;  ///< UTF-8, with the carriage returns that it came with
};

}  // namespace quill::shell
