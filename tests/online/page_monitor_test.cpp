#include "online/page_monitor.h"

#include <gmock/gmock.h>

#include "base/atomic_file.h"
#include "online/page_history.h"
#include "online/sign_in.h"
#include "scripted_http.h"
#include "shell/temporary_folder.h"
#include "tools/history_time.h"

namespace quill::online {
namespace {

using std::chrono::seconds;
using testing::ElementsAre;
using testing::HasSubstr;

using Time = std::chrono::system_clock::time_point;

/// The service with its number of pages, or without an answer. What it is asked waits until `Answer`, or for
/// nothing.
class PageService final : public platform::BackgroundHttp {
 public:
  void Send(platform::HttpRequest request, Done done) override {
    requests.push_back(request);
    m_waiting.emplace_back(std::move(request), std::move(done));
  }
  void Answer() {
    while (!m_waiting.empty()) {
      const auto [request, done] = std::move(m_waiting.front());
      m_waiting.erase(m_waiting.begin());
      done(ReplyTo(request));
    }
  }

  std::string count = R"({"@odata.context":"x","@odata.count":0,"value":[]})";
  std::optional<ScriptedHttp::Reply> failure;  ///< of counts
  std::optional<ScriptedHttp::Reply> tokens;   ///< else there are fresh ones
  std::vector<platform::HttpRequest> requests;

 private:
  ScriptedHttp::Reply ReplyTo(const platform::HttpRequest& request) const {
    if (request.url.ends_with("/token")) return tokens.value_or(ScriptedHttp::Answer(kTokens));
    if (request.url.ends_with("/me")) return ScriptedHttp::Answer(kUser);
    return failure.value_or(ScriptedHttp::Answer(count));
  }

  std::vector<std::pair<platform::HttpRequest, Done>> m_waiting;
};

class Monitor : public testing::Test {
 protected:
  static std::string CountOf(std::int64_t total) {
    return R"({"@odata.count":)" + std::to_string(total) + R"(,"value":[]})";
  }
  /// Ticks this often, two seconds apart, each answered before the next.
  void Tick(int times = 1) {
    for (int i = 0; i < times; ++i) {
      monitor.TimerRun();
      service.Answer();
      clock.Set(clock.Now() + seconds(2));
    }
  }
  /// The next count, and the tick that looks at it.
  void Count(std::int64_t total) {
    service.count = CountOf(total);
    clock.Set(clock.Now() + seconds(1800));
    Tick(2);
  }
  std::string History() const { return ReadFile(file).ValueOr("no file"); }
  std::vector<std::string> Urls() const {
    std::vector<std::string> urls;
    for (const auto& request : service.requests) urls.push_back(request.url);
    return urls;
  }

  const test::TemporaryFolder folder;
  const std::filesystem::path file = folder.path() / "PagesNumHistory.txt";
  AccountWorld world;
  PageService service;
  platform::FixedClock clock{Time(std::chrono::hours(500'000))};
  PageRules rules{true, 5};
  std::vector<LostPages> warnings;
  std::vector<std::string> problems;
  PageMonitor monitor{{world.session, service, clock, file,
                       [](Time moment) {
                         return tools::HistoryTime(moment, {"de_DE", "UTC"});
                       },
                       [this] { return rules; }, [this](const LostPages& lost) { warnings.push_back(lost); },
                       [this](const std::string& problem) { problems.push_back(problem); }}};
};

constexpr const char* kCountUrl = "https://graph.test/v1.0/users/id-0/onenote/pages?count=true&top=1";

// What the service is asked, and how often: every half hour, whatever ticks there are between.
TEST_F(Monitor, CountsEveryHalfHour) {
  service.count = CountOf(100);
  Tick(901);
  EXPECT_THAT(Urls(), ElementsAre(kCountUrl, kCountUrl));
  EXPECT_THAT(service.requests[0].headers, ElementsAre(platform::HttpHeader{"Authorization", "Bearer at-0"}));
  EXPECT_EQ(service.requests[0].deadline, seconds(30));
  EXPECT_EQ(world.memory.pages.current, 100);
  EXPECT_THAT(warnings, ElementsAre());
  EXPECT_EQ(History(), "[2027-01-15 08:00:02] 100")
      << "one line, without a break, and no warning at the start";
}

// Drops are warned of above the limit only; whatever the total is, it is what the next is compared with.
TEST_F(Monitor, WarnsAboveTheLimit) {
  for (const std::int64_t total : {100, 95, 89, 83, 200, 194}) Count(total);
  EXPECT_THAT(warnings, ElementsAre(LostPages{95, 89}, LostPages{89, 83}, LostPages{200, 194}));
  EXPECT_THAT(History(), testing::EndsWith("] 200\n[2027-01-15 11:00:22] 194"));
  warnings.clear();
  service.count = R"({"error":{"code":"19999"}})";
  clock.Set(clock.Now() + seconds(1800));
  const std::string before = History();
  Tick(2);
  EXPECT_THAT(warnings, ElementsAre(LostPages{194, 0})) << "an answer without a number is a total of 0";
  EXPECT_EQ(History(), before) << "which is not written";
  Tick(50);
  EXPECT_EQ(warnings.size(), 1u) << "told once";
}

// Numbers as a service might write them.
TEST_F(Monitor, ReadsTheNumberInFrontOfTheComma) {
  const std::pair<const char*, std::int64_t> cases[] = {
      {R"({"@odata.count": 17 ,"value":[]})", 17},
      {R"({"@odata.count":17})", 0},
      {R"({"@odata.count":"17","value":[]})", 0},
      {R"({"@odata.count":12.9,"value":[]})", 12},
      {R"({"@odata.count":99999999999999999999,"v":1})", INT64_MAX},
      {R"({"@odata.count":-99999999999999999999,"v":1})", INT64_MIN},
      {"", 0}};
  for (const auto& [body, total] : cases) {
    service.count = body;
    clock.Set(clock.Now() + seconds(1800));
    Tick(2);
    EXPECT_EQ(world.memory.pages.current, total) << body;
  }
}

// A failed count changes nothing that is compared or written; the token is renewed for the next one.
TEST_F(Monitor, RefreshesAfterAFailureAndCountsHalfAnHourLater) {
  Count(100);
  const std::string before = History();
  service.requests.clear();
  service.failure = ScriptedHttp::Unauthorized();
  clock.Set(clock.Now() + seconds(1800));
  Tick(100);
  EXPECT_THAT(Urls(), ElementsAre(kCountUrl, "https://identity.test/common/oauth2/v2.0/token"));
  EXPECT_EQ(world.memory.pages.current, 100);
  EXPECT_EQ(History(), before);
  EXPECT_GT(world.memory.pages.failedAt, world.memory.pages.countedAt);
  service.failure.reset();
  Count(101);
  EXPECT_EQ(service.requests.back().headers[0].value, "Bearer at-1");
  EXPECT_EQ(world.memory.pages.current, 101);
  EXPECT_THAT(warnings, ElementsAre());
}

// Whoever presses Refresh waits for it: neither the half hour nor the pause after a failure counts.
TEST_F(Monitor, CountsAtTheNextTickWhenSomebodyWaits) {
  Count(100);
  service.requests.clear();
  service.tokens = service.failure = ScriptedHttp::Failed();
  PageMonitor::WantPageCount(world.memory);
  EXPECT_TRUE(world.memory.pages.IsUnderWay());
  Tick();
  EXPECT_EQ(service.requests.size(), 2u);
  EXPECT_FALSE(world.memory.pages.IsUnderWay());
  world.account.OnlineOneNoteAccessToken = "at-2";  // a command has fetched it
  service.failure.reset();
  PageMonitor::WantPageCount(world.memory);
  Tick();
  EXPECT_EQ(service.requests.back().headers[0].value, "Bearer at-2");
  rules.isOn = false;
  PageMonitor::WantPageCount(world.memory);
  Tick(3);
  EXPECT_EQ(service.requests.size(), 3u) << "switched off is off";
  EXPECT_FALSE(world.memory.pages.IsUnderWay());
}

// Without a token nothing is asked; a token without a user asks for him first, and again a minute after a
// failure.
TEST_F(Monitor, FindsTheUserFirst) {
  world.account = {};
  Tick(40);
  EXPECT_THAT(Urls(), ElementsAre());
  world.account.OnlineOneNoteAccessToken = "at-0";
  service.count = CountOf(7);
  Tick(2);
  EXPECT_THAT(Urls(), ElementsAre("https://graph.test/v1.0/me",
                                  "https://graph.test/v1.0/me/onenote/pages?count=true&top=1"));
  EXPECT_EQ(world.memory.pages.current, 7);
  world.memory.PendingAuthCode = "c-1";
  world.account.OnlineOneNoteAccessToken.clear();
  service.requests.clear();
  Tick(2);
  EXPECT_THAT(Urls().front(), HasSubstr("/token"));
  EXPECT_EQ(world.account.OnlineOneNoteAccessToken, "at-1");
  EXPECT_THAT(warnings, ElementsAre());
}

// The pages of one user are not missing because another has signed in, or because nobody is signed in any
// more.
TEST_F(Monitor, ComparesNobodysPagesWithAnothers) {
  Count(1000);
  service.count = CountOf(900);
  clock.Set(clock.Now() + seconds(1800));
  monitor.TimerRun();
  ASSERT_TRUE(BeginLogout(world.session).ok()) << "while the count is under way";
  service.Answer();
  Tick(3);
  EXPECT_EQ(world.memory.pages.current, 0);
  world.account = {"at-9", "rt-9", "", "id-9", ""};
  Count(12);
  world.account = {"at-8", "rt-8", "", "id-8", ""};
  Count(3);
  EXPECT_THAT(warnings, ElementsAre());
  EXPECT_THAT(History(), HasSubstr("] 1000\n[2027-01-15 09:30:12] 12\n"));
  service.count = CountOf(4);
  clock.Set(clock.Now() + seconds(1800));
  monitor.TimerRun();
  world.account.OnlineOneNoteAccessToken = "at-7";
  service.Answer();
  EXPECT_EQ(world.memory.pages.current, 4) << "fresh tokens of the same user are no other user";
}

// A history that is none is kept beside the new one; one that cannot be written is told.
TEST_F(Monitor, KeepsABadHistoryAside) {
  folder.Write("PagesNumHistory.txt", "\xFF\xFE bytes");
  Count(100);
  EXPECT_THAT(History(), HasSubstr("] 100"));
  EXPECT_EQ(ReadFile(folder.path() / "PagesNumHistory.txt.bad").ValueOr(""), "\xFF\xFE bytes");
  std::filesystem::remove_all(folder.path());
  Count(101);
  EXPECT_THAT(problems, ElementsAre(HasSubstr("PagesNumHistory.txt")));
  EXPECT_EQ(world.memory.pages.previous, 101);
}

// A clock that was set back must not stop the counting.
TEST_F(Monitor, CountsAfterTheClockWasSetBack) {
  Count(100);
  clock.Set(clock.Now() - std::chrono::hours(48));
  service.count = CountOf(101);
  Tick();
  EXPECT_EQ(world.memory.pages.current, 101);
}

// A year of a running program, with every line of its history: the total changes now and then, the service is
// away for some hours each week, and the year in the lines is that of the week.
TEST_F(Monitor, KeepsTheHistoryOfAYear) {
  const Time start = std::chrono::sys_days(std::chrono::year(2024) / 7 / 1);
  const auto totalAt = [](std::int64_t second) {
    return 500 + second / 250'000 * 7 - second / 1'000'000 * 26;
  };
  const auto isAway = [](std::int64_t second) { return second % 604'800 < 10'000; };
  rules.tolerated = 10;
  std::string expected;
  std::size_t drops = 0;
  std::int64_t last = 0, due = 0;
  for (std::int64_t second = 0; second < 365 * 86'400; second += 60) {
    if (const std::int64_t total = totalAt(second); second == due) {
      due += 1800;
      if (!isAway(second) && total != last) {
        if (!expected.empty()) expected += "\n";
        expected += "[" +
                    tools::FormatDate("YYYY-MM-dd HH:mm:ss", start + seconds(second + 60), {"de_DE", "UTC"}) +
                    "] " + std::to_string(total);
        drops += last - total > 10 ? 1 : 0;
        last = total;
      }
    }
    clock.Set(start + seconds(second));
    service.count = CountOf(totalAt(second));
    service.failure = isAway(second)
                          ? std::optional(ScriptedHttp::Answer("", 401, {{"WWW-Authenticate", "x"}}))
                          : std::nullopt;
    monitor.TimerRun();
    service.Answer();
  }
  EXPECT_EQ(History(), expected);
  EXPECT_GT(std::ranges::count(expected, '\n'), 100);
  EXPECT_THAT(expected, HasSubstr("\n[2025-12-30 ")) << "30 December 2024 lies in the first week of 2025";
  EXPECT_EQ(warnings.size(), drops);
  EXPECT_GT(drops, 10u);
}

}  // namespace
}  // namespace quill::online
