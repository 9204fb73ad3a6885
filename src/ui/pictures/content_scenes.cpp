#include "ui/pictures/content_scenes.h"

#include <QDir>
#include <QImage>
#include <chrono>
#include <optional>

#include "shell/content_requests.h"
#include "ui/kit/qt_text.h"
#include "ui/pictures/sample_data.h"
#include "ui/pictures/scene_parts.h"
#include "ui/windows/dates/win_calendar.h"
#include "ui/windows/dates/win_date_time_format.h"
#include "ui/windows/image_table/image_list_model.h"
#include "ui/windows/image_table/win_image_table.h"
#include "ui/windows/tables/win_table2text.h"
#include "ui/windows/tables/win_table_style.h"
#include "ui/windows/tables/win_text2table.h"
#include "ui/windows/text/win_image_ocr_text.h"
#include "ui/windows/text/win_word_count.h"

namespace quill::ui {
namespace {

using namespace std::chrono_literals;
constexpr auto kNow = std::chrono::sys_days(2026y / 11 / 15) + 14h + 5min + 9s;

template <class Window, class Request>
Look Open(Studio& studio, const Request& request) {
  return InFront(new Window(studio.strings, request, [](const std::optional<typename Request::Answer>&) {}));
}

shell::TableCopy SampleTable() {
  auto document = std::make_shared<pugi::xml_document>();
  document->load_string(
      "<table border='1'><tr><td style='a'>Bed</td><td style='a'>Sown</td><td style='a'>Harvest</td></tr>"
      "<tr><td style='a'>North</td><td style='a'>Broad beans</td><td style='a'>June</td></tr>"
      "<tr><td style='a'>South</td><td style='a'>Courgettes, squash</td><td style='a'>August</td></tr>"
      "<tr><td style='a'>Frame</td><td style='a'>Lettuce</td><td style='a'>May</td></tr>"
      "<tr><td style='a'>Wall</td><td style='a'>Pears</td><td style='a'>October</td></tr></table>");
  return document;
}

Look OpenCount(Studio& studio) {
  const tools::WordCounts counts{18, 4'716, 5'603, 912, 14, 3};
  return Open<MWinWordCount>(studio, shell::CountRequest{"titleWordCount", tools::RowsOf(counts)});
}

Look OpenTextToTable(Studio& studio) {
  return Open<MWinText2Table>(
      studio, shell::Text2TableRequest{"Bed,Sown,Harvest\nNorth,Broad beans,June\nSouth,Courgettes,August",
                                       {tools::TextTableMode::Commas, "-", "", ""}});
}

/// Pictures of several sizes in files, in the list of the dialog.
Look OpenImageTable(Studio& studio) {
  auto* window = new MWinImageTable(studio.strings, studio.panels, shell::ImageTableRequest{},
                                    [](const std::optional<shell::ImageTableChoice>&) {});
  // The list shows folders from the user's own on.
  qputenv("HOME", studio.folder.path().toUtf8());
  QDir(studio.folder.path()).mkdir(QStringLiteral("Pictures"));
  const QImage chart = SampleChart();
  std::vector<std::string> files;
  const std::pair<const char*, QRect> parts[] = {{"Rain in the garden.png", chart.rect()},
                                                 {"The wet summer.jpg", QRect(380, 80, 260, 430)},
                                                 {"Autumn.png", QRect(600, 60, 290, 300)}};
  for (const auto& [name, area] : parts) {
    const QString file = studio.folder.filePath(QStringLiteral("Pictures/") + QLatin1String(name));
    chart.copy(area).save(file);
    files.push_back(FromQt(file));
  }
  window->Add(files);
  BringToFront(*window);
  return [window = QPointer(window), rows = int(files.size())]() -> QList<QWidget*> {
    if (!window) return {};
    const auto* list = window->findChild<ImageListModel*>();
    if (list->rowCount() < rows) return {};
    for (int row = 0; row < rows; ++row) {
      if (!list->index(row).data(ImageListModel::ThumbnailRole).isValid()) return {};
    }
    return {window};
  };
}

}  // namespace

std::vector<Scene> ContentScenes() {
  return {{QStringLiteral("table-style"),
           [](Studio& studio) {
             return Open<MWinTableStyle>(studio, shell::TableStyleRequest{SampleTable(), 17});
           }},
          {QStringLiteral("table-to-text"),
           [](Studio& studio) {
             return Open<MWinTable2Text>(
                 studio, shell::Table2TextRequest{SampleTable(), {tools::TableTextMode::Other, " | "}});
           }},
          {QStringLiteral("text-to-table"), OpenTextToTable},
          {QStringLiteral("word-count"), OpenCount},
          {QStringLiteral("date-formats"),
           [](Studio& studio) {
             return Open<MWinDateTimeFormat>(
                 studio, shell::DateTimeFormatRequest{{"EEEE, d MMMM yyyy", "h:mm a"}, kNow});
           }},
          {QStringLiteral("calendar"),
           [](Studio& studio) {
             return Open<MWinCalendar>(studio, shell::CalendarRequest{2026y / 11 / 15, true});
           }},
          {QStringLiteral("image-table"), OpenImageTable},
          {QStringLiteral("image-text"), [](Studio& studio) {
             return Open<MWinImageOCRText>(
                 studio,
                 shell::ImageTextRequest{"Rain in the garden\r\n\r\nThe year was wetter\r\nthan usual. 下 雨 "
                                         "很 多 。\r\nJuly brought 92 mm!"});
           }}};
}

}  // namespace quill::ui
