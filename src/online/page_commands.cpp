#include <utility>

#include "base/atomic_file.h"
#include "online/headings.h"
#include "online/online_main.h"
#include "online/online_requests.h"
#include "online/pane_headings.h"
#include "online/tag_export.h"

// The commands that work on the HTML of the current page.
namespace quill::online {
namespace {

constexpr std::string_view kNotXml = "Xml error!";

}  // namespace

/// The page as it came, for whoever looks into a trouble; a log that cannot be written is no reason to stop.
void MOnlineOneNoteMain::WritePageLog(const Page& page) {
  const auto file = m_host.PageLogFile();
  if (!file) return;
  const Status<> written = WriteFileAtomically(*file, page.html);
  if (!written.ok()) m_host.Explain("page log: " + written.error());
}

MOnlineOneNoteMain::Trouble MOnlineOneNoteMain::TroubleOf(PageProblem problem, std::string_view nothingKey) {
  return {problem == PageProblem::NotXml ? std::string(kNotXml) : m_host.Text(nothingKey)};
}

MOnlineOneNoteMain::Outcome MOnlineOneNoteMain::CreateTOCHeadings(Page& page, std::string_view) {
  WritePageLog(page);
  const auto block = GenerateTOCHeadingsHtml(page.html, page.link.link, m_host.Text("strTableOfContents"));
  if (!block.ok()) return TroubleOf(block.error(), "errNoHeadings");
  Insert(*block);
  return std::nullopt;
}

MOnlineOneNoteMain::Outcome MOnlineOneNoteMain::NavigatePane(Page& page, std::string_view) {
  auto headings = ListTOCHeadingsHtml(page.html, page.link.link);
  if (!headings.ok()) Tell(kNotXml);
  m_progress.reset();
  m_host.ShowWindow(
      NavigatePaneRequest{page.link.pageTitle, page.link.link, std::move(headings).ValueOr({})});
  return std::nullopt;
}

MOnlineOneNoteMain::Outcome MOnlineOneNoteMain::ExportTagsToFile(TagFormat format, const Page& page,
                                                                 std::string_view file) {
  WritePageLog(page);
  const auto text = GenerateTags2Content(format, page.html, page.link.link);
  if (!text.ok()) return TroubleOf(text.error(), "errNoTags");
  const Status<> written = WriteFileAtomically(file, *text);
  if (!written.ok()) return Trouble{m_host.Text("errWriteFile", {std::string(file)})};
  return std::nullopt;
}

MOnlineOneNoteMain::Outcome MOnlineOneNoteMain::ExportTagsAsCsv(Page& page, std::string_view file) {
  return ExportTagsToFile(TagFormat::Csv, page, file);
}

MOnlineOneNoteMain::Outcome MOnlineOneNoteMain::ExportTagsAsXml(Page& page, std::string_view file) {
  return ExportTagsToFile(TagFormat::Xml, page, file);
}

}  // namespace quill::online
