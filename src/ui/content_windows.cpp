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
void AddContentWindows(WindowFactory& windows, const shell::StringTable& strings, PanelMemory& panels) {
  windows.AddPlainDialog<shell::TableStyleRequest, MWinTableStyle>(strings);
  windows.AddPlainDialog<shell::Table2TextRequest, MWinTable2Text>(strings);
  windows.AddPlainDialog<shell::Text2TableRequest, MWinText2Table>(strings);
  windows.AddPlainDialog<shell::CountRequest, MWinWordCount>(strings);
  windows.AddPlainDialog<shell::DateTimeFormatRequest, MWinDateTimeFormat>(strings);
  windows.AddPlainDialog<shell::CalendarRequest, MWinCalendar>(strings);
  windows.AddPlainDialog<shell::ImageTextRequest, MWinImageOCRText>(strings);
  windows.AddDialog<shell::ImageTableRequest>(
      [&](const shell::ImageTableRequest& request, MWinImageTable::Done done) {
        return new MWinImageTable(strings, panels, request, std::move(done));
      });
}

}  // namespace quill::ui
