#include "shell/exports.h"

#include <fmt/format.h>

#include <filesystem>
#include <fstream>

#include "content/element_lookup.h"
#include "content/html_normalizer.h"
#include "content/text_between.h"
#include "shell/image_sources.h"
#include "shell/transform_table.h"
#include "tools/slides.h"
#include "tools/table_csv.h"

namespace quill::shell {
namespace {

namespace fs = std::filesystem;

std::optional<fs::path> AskSavePath(TransformContext& context, std::string_view titleKey,
                                    std::string_view defaultName, std::string_view extension) {
  return context.services.ui.AskSavePath({std::string(context.services.strings.Text(titleKey)),
                                          std::string(defaultName), std::string(extension)});
}

/// Writes the file in place, as a user's own exports are written.
void WriteExport(TransformContext& context, const fs::path& file, std::string_view text) {
  std::ofstream out(file, std::ios::binary | std::ios::trunc);
  out.write(text.data(), static_cast<std::streamsize>(text.size()));
  out.close();
  if (!out) context.bridge.ShowMessage(context.services.strings.Format("errWriteFile", {file.string()}));
}

}  // namespace

std::int64_t SaveDiagnostics(TransformContext& context) {
  const auto file = AskSavePath(context, "titleSaveDiagnosticsFile", "Diagnostics", "bin");
  if (file) WriteExport(context, *file, context.fragment);
  return 0;
}

std::int64_t ExportLog(TransformContext& context) {
  const auto file = AskSavePath(context, "titleExportLogFile", "LogData.dat", "dat");
  if (file) WriteExport(context, *file, content::StripFragmentMarkers(context.whole));
  return 0;
}

std::int64_t SaveAsHtml(TransformContext& context) {
  const auto file = AskSavePath(context, "titleSaveAsHtmlFile", "", "htm");
  if (!file) return 0;
  SaveAsHtml_SaveImage(context.document->Root(), *file, [&](std::string_view problem) {
    context.services.log.Write(fmt::format("error: {}", problem));
  });
  const std::string html = content::XmlToHtml(context.document->Xml());
  WriteExport(context, *file,
              fmt::format("{}{}{}", context.globals.FragmentHead, html, context.globals.FragmentTail));
  return 0;
}

std::int64_t SaveTableAsCSV(TransformContext& context) {
  const pugi::xml_node table = content::FindElementNamed(context.document->Root(), "table");
  if (!table) {
    context.bridge.ShowMessage(context.services.strings.Text("msgLoadTableError"));
    return 0;
  }
  const auto file = AskSavePath(context, "titleExportToFile", "", "csv");
  if (file) WriteExport(context, *file, tools::TableToCsv(table));
  return 0;
}

std::int64_t ConvertToPPT(TransformContext& context) {
  if (!context.services.desktop.ApplicationInstalled(tools::kPowerPointApplication)) {
    context.bridge.ShowMessage("Please install Microsoft PowerPoint before using this feature!");
    return 0;
  }
  switch (tools::MConvert2Ppt().Run(*context.document)) {
    case tools::SlidesStep::SayNoHeading:
      context.bridge.ShowMessage("No heading 1 in selection!");
      break;
    case tools::SlidesStep::RunScript:
      context.bridge.RunAppleScript(tools::kPowerPointScript);
      break;
    case tools::SlidesStep::Nothing:
      break;
  }
  return 0;
}

std::int64_t SaveAsWordDocument(TransformContext& context) {
  if (!context.services.desktop.ApplicationInstalled("/Applications/Microsoft Word.app")) {
    context.bridge.ShowMessage("Please install Microsoft Word before using this feature!");
    return 0;
  }
  context.bridge.RunAppleScript(context.globals.scripts.ScriptWordExport);
  return 0;
}

}  // namespace quill::shell
