#include <algorithm>

#include "online/breadcrumb.h"
#include "online/client_link.h"
#include "online/notebook_contents.h"
#include "online/notebook_export.h"
#include "online/online_main.h"
#include "online/online_requests.h"
#include "online/section_contents.h"
#include "online/service_addresses.h"
#include "online/service_list.h"

// The commands that work on lists of pages and notebooks.
namespace quill::online {
namespace {

constexpr std::size_t kMostListed = 100;
constexpr std::string_view kNotebookNotFound = "Error: Cannot found the notebook!";

/// Whether a section's list could have named the page and does not.
bool LacksPage(std::string_view body, std::string_view pageClientId) {
  const auto pages = ValueOf(body);
  return pages && pages->size() < kMostListed && !GetOnlineId(body, pageClientId);
}

}  // namespace

/// The body of a list, or the trouble when there is none.
Result<std::string, MOnlineOneNoteMain::Trouble> MOnlineOneNoteMain::GetList(const std::string& url,
                                                                             std::string_view key) {
  std::optional<ServiceReply> reply =
      m_client.Send(BearerGet(url, m_session.account.OnlineOneNoteAccessToken, kServiceDeadline));
  if (!reply || reply->status >= 400 || reply->body.empty()) return Failure{TroubleOf(reply, key)};
  m_host.LogContent("list", reply->body);
  return std::move(reply->body);
}

Result<std::string, MOnlineOneNoteMain::Trouble> MOnlineOneNoteMain::GetNotebooks() {
  return GetList(NotebooksUrl(GraphBase()), "errGetNotebooksError");
}

Result<std::string, MOnlineOneNoteMain::Trouble> MOnlineOneNoteMain::GetRecentNotebooks() {
  return GetList(RecentNotebooksUrl(GraphBase()), "errGetNotebooksError");
}

Result<std::string, MOnlineOneNoteMain::Trouble> MOnlineOneNoteMain::GetSectionPages(
    std::string_view sectionId) {
  return GetList(SectionContentsUrl(GraphBase(), sectionId), "errGetPagesError");
}

MOnlineOneNoteMain::Outcome MOnlineOneNoteMain::CreateTOCSectionPages(Page& page, std::string_view) {
  const auto body = GetSectionPages(page.place.sectionId);
  if (!body.ok()) return body.error();
  // The page has been moved to another section since it was found.
  if (page.isRemembered && LacksPage(*body, page.link.pageId)) return Trouble{{}, true};
  Insert(GenerateTOCSectionPagesHtml(*body, m_host.Text("strTableOfContentsSectionPages")));
  return std::nullopt;
}

MOnlineOneNoteMain::Outcome MOnlineOneNoteMain::CreateTOCNotebooks(Page&, std::string_view) {
  const auto body = GetNotebooks();
  if (!body.ok()) return body.error();
  Insert(GenerateTOCNotebooksHtml(*body, m_host.Text("strTableOfContentsNotebooks")));
  return std::nullopt;
}

MOnlineOneNoteMain::Outcome MOnlineOneNoteMain::InsertBreadcrumb(Page& page, std::string_view) {
  const auto body = GetNotebooks();
  if (!body.ok()) return body.error();
  const auto line = GenerateBreadcrumb(*body, page.link.link);
  if (!line) return Trouble{m_host.Text("errNotFoundNotebook")};
  Insert(*line);
  return std::nullopt;
}

MOnlineOneNoteMain::Outcome MOnlineOneNoteMain::ExportPersonalNotobook(Page& page, std::string_view) {
  const auto body = GetNotebooks();
  if (!body.ok()) return body.error();
  const auto address = NotebookExportAddress(*body, page.link.link, m_session.endpoints.webApp);
  if (!address) return Trouble{std::string(kNotebookNotFound)};
  const Status<> opened = m_host.OpenUrl(*address);
  if (!opened.ok()) return Trouble{m_host.Text("errOpen", {opened.error()})};
  return std::nullopt;
}

MOnlineOneNoteMain::Outcome MOnlineOneNoteMain::ListNotebooks(Page&, std::string_view) {
  auto notebooks = GetNotebooks();
  if (!notebooks.ok()) return notebooks.error();
  auto recent = GetRecentNotebooks();
  if (!recent.ok()) return recent.error();
  m_progress.reset();
  m_host.ShowWindow(NotebookListRequest{std::move(*notebooks), std::move(*recent)});
  return std::nullopt;
}

}  // namespace quill::online
