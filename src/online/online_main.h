#pragma once
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "online/client_link.h"
#include "online/editor_talk.h"
#include "online/online_host.h"
#include "online/page_edit.h"
#include "online/page_html.h"
#include "online/page_search.h"
#include "online/service_client.h"
#include "online/session.h"
#include "online/tag_export.h"
#include "platform/clock.h"

namespace quill::online {

/// The commands that need the online copy of the current page. One object serves one command, on the command
/// thread; what went wrong has been told to the user when an operation returns.
class MOnlineOneNoteMain {
 public:
  MOnlineOneNoteMain(OnlineHost& host, Session session, platform::Http& http, const platform::Clock& clock);

  /// The commands of the menu: 0 and 1 ask for a file and export tags, 2, 3 and 10000 to 10005 run as they
  /// are; others do nothing.
  void RunInsert(std::int64_t command);

  /// Whether there is a command of that number.
  static bool Knows(std::int64_t command) { return FindCommand(command) != nullptr; }

  /// Asks where to and exports the tags of the page as CSV (0) or XML (1).
  void ExportTags(std::int64_t command);

  /// Finds the current page online and does what the number says. `str3` is the file of commands 0 and 1.
  void RunOnlineCommand(std::int64_t command, std::int64_t int1, std::int64_t int2, std::string_view str3);

  /// The page's HTML with an id on every element; "" when there is none, or when nobody is signed in.
  std::string GetPageContent(std::string_view pageOnlineId);

  /// Sends an array of changes, once. A transport failure refreshes the tokens; the changes are not sent
  /// again. The answer; nothing when there was none, or nothing to send.
  std::optional<ServiceReply> UpdatePageContent(std::string_view pageOnlineId, std::string_view json);

  /// What to find in the current page and what to put in its place.
  struct Replacement {
    std::string_view find;
    std::string_view replacement;
    bool matchesCase = false;
    bool isTrial = false;  ///< nothing is sent
  };

  /// Finds and replaces in the current page without a window, and sends the changes, once. What was found;
  /// nothing when it came to nothing, which also is it when nothing was found.
  std::optional<PageEdit> ReplaceWithoutScreen(const Replacement& order);

  // The token operations of commands (`token_operations.h`).
  void RetrieveTokensByCode();
  void RefreshTokens();
  void RetrieveUserIdByToken();

  /// Signs in with the service's pages, or out and in again. True when somebody is signed in then. When the
  /// user closes the pages, whoever was signed in before still is (unless that was ended).
  bool SignIn(SignInMode mode);

  /// How many requests were sent so far.
  int RequestCount() const { return m_client.RequestCount(); }

 private:
  /// What a command works on: the page that is open in OneNote.
  struct Page {
    PageClientLink link;
    OnlinePlace place;
    std::string html;           ///< of commands that need it
    bool isRemembered = false;  ///< found by an earlier command, and not seen since
  };

  /// Why an operation came to nothing.
  struct Trouble {
    std::string text;  ///< for the user
    bool mayBeStale =
        false;  ///< perhaps because the page is no longer where it was, or the token has run out
  };
  using Outcome = std::optional<Trouble>;

  /// One row of the table of commands.
  struct Command {
    std::int64_t number;
    bool needsHtml;
    Outcome (MOnlineOneNoteMain::*run)(Page& page, std::string_view file);
  };
  static const Command* FindCommand(std::int64_t number);

  using Operation = std::function<Outcome(Page& page)>;

  // The steps of a command; each is false, told, when the command ends there.
  bool ReadLink(Page& page);
  bool MakeSureOfAccount(const Page& page);
  bool FindPage(Page& page);
  bool SearchPage(Page& page);
  void RunOnPage(bool needsHtml, const Operation& operation);
  void RunAndRetry(bool needsHtml, const Operation& operation, Page& page);
  Outcome RunOnce(bool needsHtml, const Operation& operation, Page& page);

  // The operations of the commands.
  Outcome ExportTagsAsCsv(Page& page, std::string_view file);
  Outcome ExportTagsAsXml(Page& page, std::string_view file);
  Outcome CreateTOCHeadings(Page& page, std::string_view);
  Outcome NavigatePane(Page& page, std::string_view);
  Outcome CreateTOCSectionPages(Page& page, std::string_view);
  Outcome CreateTOCNotebooks(Page& page, std::string_view);
  Outcome FindReplace(Page& page, std::string_view);
  Outcome InsertBreadcrumb(Page& page, std::string_view);
  Outcome ExportPersonalNotobook(Page& page, std::string_view);
  Outcome ListNotebooks(Page& page, std::string_view);

  /// The last save of an editor, for taking it back.
  struct LastSave {
    std::string before;   ///< the page that the changes were made for
    std::string changes;  ///< "" when there is nothing to take back
  };
  EditorAnswer SaveChanges(Page& page, LastSave& last, const std::string& changes);
  EditorAnswer TakeBack(Page& page, LastSave& last);
  std::string FetchAgain(const Page& page);
  /// Why changes that were sent are not in the page; nothing when they are.
  Outcome SendChanges(const Page& page, std::string_view changes);
  Outcome ReplaceInPage(const Page& page, const Replacement& order, std::optional<PageEdit>& done);

  Outcome ExportTagsToFile(TagFormat format, const Page& page, std::string_view file);
  void WritePageLog(const Page& page);
  void Insert(std::string_view fragment);

  Result<std::string, Trouble> GetSectionPages(std::string_view sectionId);
  Result<std::string, Trouble> GetNotebooks();
  Result<std::string, Trouble> GetRecentNotebooks();
  Result<std::string, Trouble> GetList(const std::string& url, std::string_view key);

  bool SignInForCommand();
  void ExchangePendingCode();
  Outcome FetchHtml(Page& page);
  std::optional<ServiceReply> FetchContent(std::string_view pageOnlineId);
  Trouble TroubleOf(const std::optional<ServiceReply>& reply, std::string_view key);
  Trouble TroubleOf(PageProblem problem, std::string_view nothingKey);
  void Tell(std::string_view text);
  /// Tells the text of a key; false.
  bool Say(std::string_view key);
  std::string GraphBase() const;

  OnlineHost& m_host;
  Session m_session;
  const platform::Clock& m_clock;
  std::unique_ptr<platform::Progress> m_progress;  ///< while the service is being asked
  ServiceClient m_client;
};

}  // namespace quill::online
