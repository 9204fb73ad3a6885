#include "shell/content_actions.h"

#include <filesystem>
#include <memory>
#include <utility>

#include "shell/command_table.h"
#include "shell/content_requests.h"
#include "shell/onenote_main.h"
#include "shell/save_notice.h"
#include "shell/skipped_pictures.h"
#include "tools/calendar.h"
#include "tools/image_table.h"
#include "tools/image_text.h"

namespace quill::shell {
namespace {

/// Reads the pictures while the user watches, and can stop it.
tools::ImageTableBuild Build(CommandContext& context, const ImageTableChoice& chosen) {
  const std::unique_ptr<platform::Progress> progress =
      context.services.ui.BeginProgress(context.services.strings.Text("strReadingPictures"));
  return tools::BuildImageTable(chosen.paths, chosen.style, [&](std::size_t done, std::size_t total) {
    const std::string name =
        done < total ? std::filesystem::path(chosen.paths[done]).filename().string() : std::string();
    progress->Set(total == 0 ? 1 : static_cast<double>(done) / static_cast<double>(total), name);
    return !progress->Cancelled();
  });
}

void RememberImageTable(CommandContext& context, const tools::ImageTableStyle& style) {
  Settings& settings = context.globals.settings;
  settings.ImageTableHorizontalArrange = style.layout == tools::ImageLayout::Horizontal ? 1 : 0;
  settings.ImageTableShowFileName = style.names == tools::ImageNames::Shown ? 1 : 0;
  SayUnlessSaved(context.services,
                 SaveSettingRows(context.globals, {"ImageTableHorizontalArrange", "ImageTableShowFileName"}));
}

}  // namespace

void DateTimeFormat(CommandContext& context, const CommandRow&) {
  Settings& settings = context.globals.settings;
  const auto chosen = platform::RunDialog(
      context.services.ui,
      DateTimeFormatRequest{{settings.DateFormat, settings.TimeFormat}, context.services.clock.Now()});
  if (!chosen) return;
  const DateTimeFormats before{std::exchange(settings.DateFormat, chosen->date),
                               std::exchange(settings.TimeFormat, chosen->time)};
  const Status<> saved = SaveSettings(context.globals);
  if (saved.ok()) return;
  settings.DateFormat = before.date;
  settings.TimeFormat = before.time;
  SayUnlessSaved(context.services, saved);
}

void CalendarOfChoice(CommandContext& context, const CommandRow&) {
  const auto chosen = platform::RunDialog(context.services.ui,
                                          CalendarRequest{LocalDay(context.services.clock.Now()),
                                                          context.globals.settings.CalendarStartWithMonday});
  if (!chosen) return;
  const tools::CalendarMonth month = tools::MonthOfDay(chosen->day);
  const bool wholeYear = chosen->span == CalendarChoice::Span::Year;
  NSOneNoteMain(context.services, context.globals)
      .RunInsert(wholeYear ? 22 : 21, month.year, month.month, "");
}

void ImageTable(CommandContext& context, const CommandRow&) {
  const Settings& settings = context.globals.settings;
  const tools::ImageTableStyle remembered{
      settings.ImageTableHorizontalArrange != 0 ? tools::ImageLayout::Horizontal
                                                : tools::ImageLayout::Vertical,
      settings.ImageTableShowFileName != 0 ? tools::ImageNames::Shown : tools::ImageNames::Hidden};
  const auto chosen = platform::RunDialog(context.services.ui, ImageTableRequest{remembered});
  if (!chosen) return;
  RememberImageTable(context, chosen->style);
  const tools::ImageTableBuild table = Build(context, *chosen);
  if (table.isCancelled) return;
  if (!table.html.empty()) NSOneNoteMain(context.services, context.globals).RunInsertHtml(table.html);
  const std::string skipped = SkippedMessage(context.services.strings, table.skipped);
  if (!skipped.empty()) context.services.ui.ShowMessage(skipped);
}

void ImageOCRText(CommandContext& context, const CommandRow&) {
  std::string text;
  {
    // The user has their own clipboard back before the window opens.
    SelectionBridge bridge(context.services, context.globals);
    const std::string html = bridge.CopySelectionHtml();
    if (html.empty()) return bridge.ShowCopyProblem();
    text = tools::ImageAltText(html);
  }
  platform::RunDialog(context.services.ui, ImageTextRequest{std::move(text)});
}

}  // namespace quill::shell
