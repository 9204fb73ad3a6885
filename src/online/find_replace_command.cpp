#include <utility>

#include "online/asking.h"
#include "online/editor_talk.h"
#include "online/online_main.h"
#include "online/online_messages.h"
#include "online/page_edit.h"

// Find and replace in the current page: in a window, and without one.
namespace quill::online {
namespace {

/// Whether the changes were made for a page that is no longer like that.
bool SaysPageChanged(const ServiceError& error) {
  constexpr int kConflict = 409;
  constexpr int kPreconditionFailed = 412;
  return error.code == "20120" || error.status == kConflict || error.status == kPreconditionFailed;
}

}  // namespace

/// The window lives on its own; the command waits for what it wants, and for its end.
MOnlineOneNoteMain::Outcome MOnlineOneNoteMain::FindReplace(Page& page, std::string_view) {
  WritePageLog(page);
  m_progress.reset();
  const auto talk = std::make_shared<EditorTalk>();
  m_host.ShowWindow(FindReplaceRequest{page.link.pageTitle, page.html, std::make_shared<EditorSeat>(talk)});
  LastSave last;
  while (const std::optional<EditorWish> wish = talk->Next()) {
    const bool isSave = wish->kind == EditorWish::Kind::Save;
    talk->Answer(isSave ? SaveChanges(page, last, wish->json) : TakeBack(page, last));
  }
  return std::nullopt;
}

EditorAnswer MOnlineOneNoteMain::SaveChanges(Page& page, LastSave& last, const std::string& changes) {
  if (const Outcome trouble = SendChanges(page, changes))
    return {false, trouble->text, {}, !last.changes.empty()};
  // The page that was saved into may be one that could not be read; then there is no way back.
  last = {std::exchange(page.html, FetchAgain(page)), changes};
  if (last.before.empty()) last.changes.clear();
  return {true, {}, page.html, !last.changes.empty()};
}

EditorAnswer MOnlineOneNoteMain::TakeBack(Page& page, LastSave& last) {
  if (last.changes.empty()) return {};
  if (page.html.empty()) page.html = FetchAgain(page);
  if (page.html.empty()) return {false, m_host.Text("errGetContentFailure"), {}, true};
  const Result<std::string> changes = UndoChanges(last.before, last.changes, page.html);
  if (!changes.ok()) {
    m_host.Explain("undo: " + changes.error());
    return {false, m_host.Text("errPageChanged"), {}, true};
  }
  if (const Outcome trouble = SendChanges(page, *changes)) return {false, trouble->text, {}, true};
  last = {};
  page.html = FetchAgain(page);
  return {true, {}, page.html, false};
}

/// The page with the ids that it has now; "" when it cannot be read.
std::string MOnlineOneNoteMain::FetchAgain(const Page& page) {
  const Asking asking(m_progress, m_host);
  std::optional<ServiceReply> reply = FetchContent(page.place.pageId);
  return reply && reply->status < 400 ? std::move(reply->body) : std::string();
}

MOnlineOneNoteMain::Outcome MOnlineOneNoteMain::SendChanges(const Page& page, std::string_view changes) {
  const std::optional<ServiceReply> reply = UpdatePageContent(page.place.pageId, changes);
  if (!reply) {
    const auto& failure = m_client.LastFailure();
    const bool isCancelled = failure && failure->problem == platform::HttpProblem::Cancelled;
    return Trouble{isCancelled ? std::string() : m_host.Text("errSaveNotSent")};
  }
  const std::optional<ServiceError> error = ErrorOf(*reply);
  if (!error) return std::nullopt;
  return Trouble{SaysPageChanged(*error) ? m_host.Text("errPageChanged") : ServiceErrorText(m_host, *error)};
}

std::optional<PageEdit> MOnlineOneNoteMain::ReplaceWithoutScreen(const Replacement& order) {
  std::optional<PageEdit> done;
  RunOnPage(true, [&](Page& page) { return ReplaceInPage(page, order, done); });
  return done;
}

MOnlineOneNoteMain::Outcome MOnlineOneNoteMain::ReplaceInPage(const Page& page, const Replacement& order,
                                                              std::optional<PageEdit>& done) {
  Result<PageEdit> edit = online::ReplaceInPage(page.html, order.find, order.replacement, order.matchesCase);
  if (!edit.ok()) {
    m_host.Explain("page: " + edit.error());
    return TroubleOf(PageProblem::NotXml, "");
  }
  if (edit->matchCount == 0) return Trouble{m_host.Text("msgEndFind")};
  if (!order.isTrial) {
    if (Outcome trouble = SendChanges(page, edit->json)) return trouble;
  }
  done = std::move(*edit);
  return std::nullopt;
}

}  // namespace quill::online
