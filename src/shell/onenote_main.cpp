#include "shell/onenote_main.h"

#include <fmt/format.h>

#include "content/html_normalizer.h"
#include "content/strip_tags.h"
#include "content/text_between.h"
#include "content/working_document.h"
#include "shell/page_title_tag.h"
#include "shell/transform_table.h"
#include "tools/calendar.h"
#include "tools/date_text.h"

namespace quill::shell {
namespace {

constexpr std::string_view kNoBreakSpace = "\xC2\xA0";

std::string WithOrdinarySpaces(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t at = text.find(kNoBreakSpace); at != std::string_view::npos;
       at = text.find(kNoBreakSpace)) {
    result.append(text.substr(0, at)).append(1, ' ');
    text.remove_prefix(at + kNoBreakSpace.size());
  }
  return result.append(text);
}

}  // namespace

NSOneNoteMain::NSOneNoteMain(Services& services, Globals& globals)
    : m_services(services), m_globals(globals), m_bridge(services, globals) {}

std::int64_t NSOneNoteMain::Run(std::int64_t command) {
  const Explain::Scope scope(m_services.explain, "command");
  return Run_(command);
}

std::int64_t NSOneNoteMain::Run_(std::int64_t command) {
  const TransformRow* row = FindTransform(command);
  std::string html = m_bridge.CopySelectionHtml();
  std::string fragment;
  TransformContext context{m_services, m_globals, m_bridge, command, html, fragment, nullptr};
  if (html.empty()) {
    if (row != nullptr && row->whenNothingCopied != nullptr) {
      row->whenNothingCopied(context);
    } else {
      m_bridge.ShowCopyProblem();
    }
    return 0;
  }

  const content::FragmentParts parts = content::CutFragment(html);
  m_globals.FragmentHead = parts.head;
  m_globals.FragmentTail = parts.tail;
  if (row == nullptr) return 0;
  if (row->input == TransformInput::Document) {
    std::string xml = content::HtmlToXml(parts.fragment);
    context.whole = {};
    std::string().swap(html);  // as large as the selection, and not needed any more
    if (!RunOnDocument(*row, context, std::move(xml))) return 0;
  } else {
    fragment = parts.fragment;
    m_operationResult = row->run(context);
  }

  m_services.explain.Note(fmt::format("{} returned {}", row->operation, *m_operationResult));
  if (IsPastedBack(*row)) {
    m_bridge.PasteHtml(content::JoinFragment(m_globals.FragmentHead, fragment, m_globals.FragmentTail),
                       PasteMode::ReplaceSelection);
  }
  return 0;
}

bool NSOneNoteMain::RunOnDocument(const TransformRow& row, TransformContext& context, std::string xml) {
  Result<content::WorkingDocument> document = [&] {
    const Explain::Scope scope(m_services.explain, "parse");
    return content::WorkingDocument::Parse(std::move(xml));
  }();
  if (!document.ok()) {
    m_services.explain.Note(fmt::format("not well-formed: {}", document.error()));
    m_bridge.ShowMessage("Xml error!");
    return false;
  }
  context.document = &*document;
  m_operationResult = row.run(context);
  context.document = nullptr;
  if (IsPastedBack(row)) context.fragment = content::XmlToHtml(document->Xml());
  return true;
}

bool NSOneNoteMain::IsPastedBack(const TransformRow& row) const {
  return m_operationResult.value_or(0) > 0 && row.pasteBack == PasteBack::WhenPositive;
}

std::int64_t NSOneNoteMain::RunInsert(std::int64_t command, std::int64_t int1, std::int64_t int2,
                                      std::string_view str3) {
  const Explain::Scope scope(m_services.explain, "command");
  return RunInsert_(command, int1, int2, str3);
}

std::optional<std::string> NSOneNoteMain::InsertedContent(std::int64_t command, std::int64_t int1,
                                                          std::int64_t int2, std::string_view str3) {
  const Settings& settings = m_globals.settings;
  const tools::WeekStart week =
      settings.CalendarStartWithMonday ? tools::WeekStart::Monday : tools::WeekStart::Sunday;
  switch (command) {
    case 20:
      return tools::GetDateTimeStr(static_cast<tools::DateTimeKind>(int1), settings.DateFormat,
                                   settings.TimeFormat, m_services.clock.Now());
    case 21:
      return tools::CreateCalendar(int1, int2, week);
    case 22:
      return tools::CreateCalendarAnnual(int1, week);
    case 23:
      return std::string(str3);
    default:
      return std::nullopt;
  }
}

std::int64_t NSOneNoteMain::RunInsert_(std::int64_t command, std::int64_t int1, std::int64_t int2,
                                       std::string_view str3) {
  const std::optional<std::string> inserted = InsertedContent(command, int1, int2, str3);
  if (inserted) m_bridge.PasteHtmlFragment(*inserted, PasteMode::AtCaret);
  return 0;
}

std::int64_t NSOneNoteMain::RunInsertHtml(std::string_view html) {
  m_bridge.PasteHtml(html, PasteMode::AtCaret);
  return 0;
}

std::int64_t NSOneNoteMain::RunOther(std::int64_t command, std::int64_t, std::int64_t) {
  if (command != 24) return 0;
  const Explain::Scope scope(m_services.explain, "command");
  if (m_bridge.CopySelectionHtml().empty()) {
    m_bridge.ShowCopyProblem();
    return 0;
  }
  m_bridge.LeaveTextOnClipboard(WithOrdinarySpaces(m_bridge.ReadCopiedText()));
  return 0;
}

std::string NSOneNoteMain::InsertPageTitleTag(std::int64_t tagIndex) {
  if (!IsPageTitleTag(tagIndex)) return {};
  const platform::ScriptResult pressed = m_bridge.PressKeys("T", "command", "shift");
  const std::string title = pressed.ok() ? m_bridge.CopySelectionText() : std::string();
  if (title.empty()) {
    m_bridge.ShowCopyProblem();
    return {};
  }
  return ExchangePageTitleTag(title, tagIndex);
}

std::int64_t NSOneNoteMain::RunTitle(std::int64_t command, std::int64_t int1, std::int64_t) {
  if (command != 25) return 0;
  const Explain::Scope scope(m_services.explain, "command");
  const std::string title = InsertPageTitleTag(int1);
  if (!title.empty()) m_bridge.PasteText(title, PasteMode::ReplaceSelection);
  return 0;
}

void NSOneNoteMain::SetToPageTitle() {
  const Explain::Scope scope(m_services.explain, "command");
  const std::string html = m_bridge.CopySelectionHtml();
  if (html.empty()) {
    m_bridge.ShowCopyProblem();
    return;
  }
  // Around the fragment stands a head whose style sheet is text too; only the fragment is the selection.
  const bool hasMarkers = html.find(content::kStartMarker) != std::string::npos;
  const std::string title = content::StripTags(hasMarkers ? content::CutFragment(html).fragment : html);
  if (!m_bridge.PressKeys("T", "command", "shift").ok()) {
    m_bridge.ShowCopyProblem();
    return;
  }
  m_bridge.PasteHtmlFragment(title, PasteMode::AtCaret);
}

void NSOneNoteMain::InsertCalendarOfMonth(int monthsFromNow) {
  const tools::CalendarMonth month = tools::ShiftMonth(m_services.clock.Now(), monthsFromNow);
  RunInsert(21, month.year, month.month, "");
}

void NSOneNoteMain::NewPage() {
  const Explain::Scope scope(m_services.explain, "command");
  if (!m_bridge.PressKeys("n", "command").ok()) {
    m_bridge.ShowCopyProblem();
    return;
  }
  RunInsert_(23, 0, 0, tools::JournalTitle(m_globals.settings.JournalDayFormat, m_services.clock.Now()));
}

bool NSOneNoteMain::OpenLocation(std::string_view link) {
  if (link.empty()) return false;
  const Explain::Scope scope(m_services.explain, "command");
  const platform::ScriptResult opened = m_bridge.RunAppleScript(FillOpenLocation(m_globals.scripts, link));
  if (!opened.ok()) {
    m_bridge.ShowMessage(
        m_services.strings.Format(platform::ScriptProblemKey(opened.problem), {opened.detail}));
  }
  return opened.ok();
}

bool NSOneNoteMain::PastePng(const std::filesystem::path& file) {
  return m_bridge.PastePng(file, PasteMode::AtCaret);
}

}  // namespace quill::shell
