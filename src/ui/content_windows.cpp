#include "ui/content_windows.h"

#include "shell/content_requests.h"
#include "ui/kit/file_panels.h"
#include "ui/kit/window_factory.h"
#include "ui/windows/dates/win_calendar.h"
#include "ui/windows/dates/win_date_time_format.h"
#include "ui/windows/image_table/win_image_table.h"
#include "ui/windows/tables/win_table2text.h"
#include "ui/windows/tables/win_table_style.h"
#include "ui/windows/tables/win_text2table.h"
#include "ui/windows/text/win_image_ocr_text.h"
#include "ui/windows/text/win_word_count.h"

namespace quill::ui {
namespace {

/// The dialog of a request that needs nothing but texts.
template <class Request, class Window>
void Add(WindowFactory& windows, const shell::StringTable& strings) {
  windows.AddDialog<Request>([&strings](const Request& request, typename Window::Done done) {
    return new Window(strings, request, std::move(done));
  });
}

}  // namespace

void AddContentWindows(WindowFactory& windows, const shell::StringTable& strings, PanelMemory& panels) {
  Add<shell::TableStyleRequest, MWinTableStyle>(windows, strings);
  Add<shell::Table2TextRequest, MWinTable2Text>(windows, strings);
  Add<shell::Text2TableRequest, MWinText2Table>(windows, strings);
  Add<shell::CountRequest, MWinWordCount>(windows, strings);
  Add<shell::DateTimeFormatRequest, MWinDateTimeFormat>(windows, strings);
  Add<shell::CalendarRequest, MWinCalendar>(windows, strings);
  Add<shell::ImageTextRequest, MWinImageOCRText>(windows, strings);
  windows.AddDialog<shell::ImageTableRequest>(
      [&](const shell::ImageTableRequest& request, MWinImageTable::Done done) {
        return new MWinImageTable(strings, panels, request, std::move(done));
      });
}

}  // namespace quill::ui
