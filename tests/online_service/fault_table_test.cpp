#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

#include "base/atomic_file.h"
#include "online_service/online_world.h"

namespace quill::online {
namespace {

using practice::Fault;
using practice::FaultKind;
using testing::IsEmpty;
using testing::StartsWith;

/// What a user is left with.
enum class Tokens { Kept, Renewed, Cleared };

/// Where in a command the fault strikes: the path of the request, and the commands that send it.
struct Stage {
  const char* name;
  const char* path;
  std::vector<int> commands;
};

// Find and replace fetches the page as 2 does; what it does with it has a test of its own.
const std::vector<int> kAll = {0, 1, 2, 3, 10000, 10001, 10003, 10004, 10005};
const std::vector<int> kWithPage = {0, 1, 2, 3};
const std::vector<int> kWithNotebooks = {10001, 10003, 10004, 10005};

/// One row: a fault at a stage, and what comes of it. An empty text: the command succeeds.
struct Row {
  FaultKind kind;
  const char* key;       ///< of the message's beginning; empty: none
  const char* argument;  ///< of that text
  const char* figures;   ///< behind it, up to "M:"; empty for commands that found their page
  Tokens tokens;
};

class FaultTable : public testing::Test {
 protected:
  /// Every row for every command of the stage; the slow ones for one, since they are the same request for
  /// all.
  void CheckAll(const Stage& stage, const std::vector<Row>& rows) {
    for (const Row& row : rows) {
      const bool isSlow = row.kind == FaultKind::Hang || row.kind == FaultKind::HugeBody;
      for (const int command : isSlow ? std::vector<int>{stage.commands.back()} : stage.commands)
        Check(stage, row, command);
    }
  }

  /// Runs one command with one fault, and looks at everything that is left.
  void Check(const Stage& stage, const Row& row, int command) {
    SCOPED_TRACE(std::string(stage.name) + ", " + std::string(FaultName(row.kind)) + ", command " +
                 std::to_string(command));
    OnlineWorld world;
    world.http.shorten = row.kind == FaultKind::Hang;
    const Account before = world.account;
    const std::filesystem::path file =
        std::filesystem::temp_directory_path() / ("quill-tags-" + std::to_string(::getpid()));
    ASSERT_TRUE(WriteFileAtomically(file, "old").ok());
    world.service->Faults().Add({row.kind, stage.path, 0, -1});
    const auto start = std::chrono::steady_clock::now();
    world.Run(command, file.string());
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(8));
    CheckMessage(world, row);
    CheckTokens(world, row.tokens, before);
    if (*row.key != '\0') {
      EXPECT_THAT(world.host.insertions, IsEmpty());
      EXPECT_THAT(world.host.windows, IsEmpty());
      EXPECT_EQ(ReadFile(file).ValueOr(""), "old");
    }
    EXPECT_EQ(world.host.AllTexts().find(before.OnlineOneNoteAccessToken), std::string::npos);
    std::filesystem::remove(file);
    // Nothing of it is left behind: the next command of a user who is signed in works.
    world.service->Faults().Clear();
    if (row.tokens == Tokens::Cleared) return;
    world.host.messages.clear();
    world.Run(10001);
    EXPECT_THAT(world.host.messages, IsEmpty());
  }

 private:
  void CheckMessage(const OnlineWorld& world, const Row& row) {
    if (*row.key == '\0') {
      EXPECT_THAT(world.host.messages, IsEmpty());
      return;
    }
    ASSERT_EQ(world.host.messages.size(), 1u) << world.host.AllTexts();
    std::string expected = *row.argument == '\0' ? std::string(m_strings.Text(row.key))
                                                 : m_strings.Format(row.key, {row.argument});
    if (*row.figures != '\0') expected += std::string(" \n") + row.figures;
    EXPECT_THAT(world.host.messages[0], StartsWith(expected));
  }

  void CheckTokens(const OnlineWorld& world, Tokens expected, const Account& before) {
    const std::string& now = world.account.OnlineOneNoteAccessToken;
    const Tokens seen = now.empty()                              ? Tokens::Cleared
                        : now == before.OnlineOneNoteAccessToken ? Tokens::Kept
                                                                 : Tokens::Renewed;
    EXPECT_EQ(seen, expected);
    EXPECT_EQ(world.account.ClientUrlAccountId, before.ClientUrlAccountId);
    EXPECT_EQ(world.account.OnlineOneNoteUserId, before.OnlineOneNoteUserId);
  }

  shell::StringTable m_strings;
};

/// The errors that are told alike wherever a service's answer was wanted.
std::vector<Row> TheServicesErrors(const char* figures) {
  return {{FaultKind::UnauthorizedWithoutChallenge, "errServiceReply", "401, 40001", figures, Tokens::Kept},
          {FaultKind::Forbidden, "errServiceReply", "403, 40004", figures, Tokens::Kept},
          {FaultKind::NotFound, "errServiceReply", "404, 20102", figures, Tokens::Kept},
          {FaultKind::Throttled, "errThrottled", "", figures, Tokens::Kept},
          {FaultKind::ThrottledRetryAfter, "errThrottled", "", figures, Tokens::Kept},
          {FaultKind::ServerError, "errServiceReply", "500, 19999", figures, Tokens::Kept},
          {FaultKind::Unavailable, "errServiceReply", "503, 30101", figures, Tokens::Kept}};
}

/// The failures of the transport that are told alike.
std::vector<Row> NoAnswers(const char* key, const char* figures, Tokens tokens) {
  std::vector<Row> rows;
  for (const FaultKind kind : {FaultKind::ResetBefore, FaultKind::ResetDuring, FaultKind::Truncated,
                               FaultKind::Unauthorized, FaultKind::Hang})
    rows.push_back({kind, key, "", figures, tokens});
  return rows;
}

std::vector<Row> operator+(std::vector<Row> rows, const std::vector<Row>& more) {
  rows.insert(rows.end(), more.begin(), more.end());
  return rows;
}

// The search for the section: every command begins with it. A failure of the transport is tried three times,
// with fresh tokens for the next command; an error is told by its number.
TEST_F(FaultTable, InTheSectionSearch) {
  const char* kError = "E:20, T:0, S:0, P:0 \nM:";
  CheckAll({"section search", "/onenote/sections?", kAll},
           NoAnswers("errServerIndexing", "E:2, T:3, S:0, P:0 \nM:", Tokens::Renewed) +
               TheServicesErrors(kError) +
               std::vector<Row>{{FaultKind::ResetAfter, "", "", "", Tokens::Kept},
                                {FaultKind::NotJson, "errServerIndexing", "", kError, Tokens::Kept},
                                {FaultKind::HugeBody, "errServerIndexing", "", kError, Tokens::Kept}});
}

// The pages of a section: one try for each; the next section is looked at nevertheless, but for throttling.
TEST_F(FaultTable, InTheListOfPages) {
  std::vector<Row> rows = NoAnswers("errServerIndexing", "E:200, T:0, S:3, P:0 \nM:", Tokens::Kept);
  for (Row row : TheServicesErrors("E:300, T:0, S:3, P:0 \nM:")) rows.push_back(row);
  rows.push_back({FaultKind::ResetAfter, "", "", "", Tokens::Kept});
  rows.push_back({FaultKind::NotJson, "errServerIndexing", "", "E:300, T:0, S:3, P:0 \nM:", Tokens::Kept});
  CheckAll({"pages", "/pages?top=100&skip", kAll}, rows);
}

// The page itself, for the commands that read it. Nothing is refreshed: the search has just worked.
TEST_F(FaultTable, InThePage) {
  CheckAll({"page", "/content", kWithPage},
           NoAnswers("errGetContentFailure", "", Tokens::Kept) + TheServicesErrors("") +
               std::vector<Row>{{FaultKind::ResetAfter, "", "", "", Tokens::Kept}});
}

TEST_F(FaultTable, InTheSectionsContents) {
  CheckAll({"section contents", "pagelevel=true", {10000}},
           NoAnswers("errGetPagesError", "", Tokens::Kept) + TheServicesErrors("") +
               std::vector<Row>{{FaultKind::ResetAfter, "", "", "", Tokens::Kept}});
}

TEST_F(FaultTable, InTheNotebooks) {
  CheckAll({"notebooks", "/onenote/notebooks", kWithNotebooks},
           NoAnswers("errGetNotebooksError", "", Tokens::Kept) + TheServicesErrors("") +
               std::vector<Row>{{FaultKind::ResetAfter, "", "", "", Tokens::Kept}});
}

// A token that runs out in the middle costs that command and the next, which renews it.
TEST(FaultStories, TheTokenRunsOutInTheMiddle) {
  OnlineWorld world;
  const shell::StringTable strings;
  const std::string before = world.account.OnlineOneNoteAccessToken;
  world.service->Faults().Add({FaultKind::TokenExpires, "/content", 0, 1});
  world.Run(2);
  EXPECT_EQ(world.host.messages, std::vector<std::string>{std::string(strings.Text("errGetContentFailure"))});
  EXPECT_EQ(world.account.OnlineOneNoteAccessToken, before);
  world.Run(2);
  ASSERT_EQ(world.host.messages.size(), 2u);
  EXPECT_THAT(world.host.messages[1], testing::HasSubstr(strings.Text("strSignInRenewed")));
  world.Run(2);
  EXPECT_EQ(world.host.insertions.size(), 1u) << world.host.AllTexts();
}

// While the list is read somebody moves its first page to the end: the page at the seam is not seen. It is
// told as a page that was not found, and the next command finds it.
TEST(FaultStories, APageMovesBetweenTwoBatches) {
  OnlineWorld world(250);
  world.OpenPage(3100);
  world.service->Faults().Add({FaultKind::PageMoves, "/pages?top=100&skip=0", 2, 1});
  world.Run(2);
  ASSERT_EQ(world.host.messages.size(), 1u) << world.host.AllTexts();
  EXPECT_THAT(world.host.messages[0], testing::HasSubstr("T:0, S:3, P:750 "));
  world.service->Faults().Clear();
  world.Run(2);
  EXPECT_EQ(world.host.insertions.size(), 1u) << world.host.AllTexts();
}

// A service that answers every batch with the first one is not asked for ever.
TEST(FaultStories, TheServiceIgnoresSkip) {
  OnlineWorld world(250);
  world.service->Faults().Add({FaultKind::IgnoredSkip, "/pages?top=100", 0, -1});
  EXPECT_EQ(world.Run(2), 1 + 10 + 10 + 1 + 1) << world.host.AllTexts();
  EXPECT_EQ(world.host.insertions.size(), 1u);
  world.OpenPage(3200);
  EXPECT_EQ(world.Run(2), 1 + 3 * 10);
  EXPECT_EQ(world.host.messages.size(), 1u);
}

// Find and replace meets the same faults on the way to the page, and one more when it sends its changes:
// nothing is sent twice, and the user knows that it may not be saved.
TEST(FaultStories, ChangesAreSentOnce) {
  for (const FaultKind kind : {FaultKind::ResetBefore, FaultKind::Throttled, FaultKind::NotFound}) {
    OnlineWorld world;
    world.service->Faults().Add({kind, "/content", 1, -1});  // the page itself comes
    MOnlineOneNoteMain main(world.host, world.session, world.http, world.clock);
    EXPECT_FALSE(main.ReplaceWithoutScreen({"Milk", "Bread", false, false})) << world.host.AllTexts();
    EXPECT_EQ(world.host.messages.size(), 1u) << world.host.AllTexts();
    std::size_t sent = 0;
    for (const std::string& request : world.service->Requests()) sent += request.starts_with("PATCH") ? 1 : 0;
    EXPECT_EQ(sent, 1u);
  }
}

}  // namespace
}  // namespace quill::online
