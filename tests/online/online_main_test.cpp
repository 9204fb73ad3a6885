#include "online/online_main.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "online/fake_host.h"
#include "online/scripted_http.h"
#include "online/service_samples.h"

namespace quill::online {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

constexpr const char* kPageLink =
    "onenote:https://docs.test/7C1F/Documents/Home/Minutes.one#Week%2012&section-id={5D}&page-id={8A}&end";

std::string PageEntry(const std::string& id, const std::string& account, const std::string& pageId) {
  return samples::Entry(
      "onenote:https://docs.test/" + account + "/N/Minutes.one#T&section-id=5D&page-id=" + pageId + "&end",
      R"("id":")" + id + R"(","parentSection":{"id":"s-1"})");
}

const std::string kSections = samples::List({samples::Entry("x", R"("id":"s-1")")});
const std::string kPages = samples::List({PageEntry("p-0", "7c1f", "11"), PageEntry("p-1", "7c1f", "8a")});
const std::string kPage = samples::Page("<h1 id=\"h1:{b1}{62}\">One</h1>");

/// A signed-in user, a link in OneNote, and a service that answers in order.
struct World : AccountWorld {
  explicit World(std::deque<ScriptedHttp::Reply> replies = {}) : http(std::move(replies)) {
    host.link = kPageLink;
  }

  /// One command, as one object serves.
  void Run(std::int64_t command) { MOnlineOneNoteMain(host, session, http, clock).RunInsert(command); }
  std::string OnlyMessage() const {
    return host.messages.size() == 1 ? host.messages[0] : std::to_string(host.messages.size()) + " messages";
  }

  FakeHost host;
  ScriptedHttp http;
  platform::FixedClock clock{std::chrono::system_clock::time_point{}};
  shell::StringTable strings;
};

using H = ScriptedHttp;

// The whole way of a command: the sections of that name, their pages, the page, and the result at the caret.
TEST(OnlineCommand, FindsThePageAndInsertsItsContents) {
  World world({H::Answer(kSections), H::Answer(kPages), H::Answer(kPage)});
  world.Run(2);
  ASSERT_EQ(world.host.insertions.size(), 1u) << world.host.AllTexts();
  EXPECT_THAT(world.host.insertions[0], HasSubstr("&page-id={8A}&object-id={b1}&3E\">One</a>"));
  EXPECT_FALSE(world.host.insertedUnderProgress);
  EXPECT_EQ(world.http.requests[0].url,
            "https://graph.test/v1.0/users/id-0/onenote/sections?filter=tolower(name)%20eq%20'minutes'");
  EXPECT_EQ(world.http.requests[1].url,
            "https://graph.test/v1.0/users/id-0/onenote/sections/s-1/pages?top=100&skip=0");
  EXPECT_EQ(world.http.requests[2].url,
            "https://graph.test/v1.0/users/id-0/onenote/pages/p-1/content?includeIDs=true");
  for (const platform::HttpRequest& request : world.http.requests)
    EXPECT_EQ(platform::HeaderValue(request.headers, "Authorization"), "Bearer at-0");
}

// What the user reads when there is no usable link: each its own words, and nothing is asked.
TEST(OnlineCommand, EndsWithoutARequestWhenTheLinkIsOfNoUse) {
  const std::pair<const char*, const char*> kCases[] = {
      {"", "errGetPageLink"},
      {"https://docs.test/Minutes.one", "errGetPageLink"},
      {"onenote:https://docs.test/7c1f/Minutes.one#section-id={5D}&page-id={8A}&end", "errPageTitleEmpty"},
      {"onenote:https://docs.test/7c1f/#Week&page-id={8A}&end", "errPageTitleEmpty"},
      {"onenote:https://docs.test/7c1f/Minutes.one#Week&section-id={5D}&end", "errGetPagesIDError"}};
  for (const auto& [link, key] : kCases) {
    World world;
    world.host.link = link;
    world.Run(10003);
    EXPECT_EQ(world.OnlyMessage(), world.strings.Text(key)) << link;
  }
}

// Whoever has to sign in first runs the command again: what he wanted may have changed meanwhile.
TEST(OnlineCommand, OnlySignsInWhenNobodyIsSignedIn) {
  World world({H::Answer(kTokens), H::Answer(kUser), H::Answer(kNotebooks)});
  world.account = {};
  world.host.signIns = {SignInResult{"ada@outlook.com", "M.C1"}};
  world.Run(10001);
  EXPECT_THAT(world.host.signInModes, ElementsAre(SignInMode::Login));
  EXPECT_THAT(world.host.insertions, IsEmpty());
  EXPECT_EQ(world.OnlyMessage(), world.strings.Text("msgSignedInRunAgain"));
  EXPECT_EQ(world.account.OnlineOneNoteAccessToken, "at-1");
  EXPECT_EQ(world.account.ClientUrlAccountId, "7c1f0a93");
  EXPECT_EQ(world.memory.PendingAuthCode, "");
}

// Closing the pages is no sign-out.
TEST(OnlineCommand, KeepsTheAccountWhenThePagesOfASignInAreClosed) {
  World world;
  world.account.ClientUrlAccountId = "another";
  const Account before = world.account;
  world.host.answers = {true};
  world.Run(2);
  EXPECT_THAT(world.host.questions, ElementsAre(world.strings.Text("askAccountsDifference")));
  EXPECT_THAT(world.host.signInModes, ElementsAre(SignInMode::Login));
  EXPECT_EQ(world.account, before);
  EXPECT_THAT(world.host.messages, IsEmpty());
}

// NO to the question about accounts ends the command without a request; so does a build that cannot sign in.
TEST(OnlineCommand, EndsWhereTheUserSaysNo) {
  World world;
  world.account.ClientUrlAccountId = "";
  world.Run(2);
  EXPECT_EQ(world.host.questions.size(), 1u);
  EXPECT_THAT(world.host.messages, IsEmpty());

  World placeholder;
  placeholder.endpoints.clientId = "00000000-0000-0000-0000-000000000000";
  placeholder.account = {};
  placeholder.Run(2);
  EXPECT_EQ(placeholder.OnlyMessage(), placeholder.strings.Text("errNoClientId"));
  EXPECT_THAT(placeholder.host.signInModes, IsEmpty());
}

// A code that waits is exchanged before the command goes on, without another sign-in.
TEST(OnlineCommand, ExchangesACodeThatWaits) {
  World world({H::Answer(kTokens), H::Answer(kUser), H::Answer(kSections), H::Answer(kPages),
               H::Answer(samples::List({}))});
  world.account.OnlineOneNoteAccessToken.clear();
  world.memory.PendingAuthCode = "M.C1";
  world.Run(10001);
  EXPECT_EQ(world.host.insertions.size(), 1u) << world.host.AllTexts();
  EXPECT_THAT(world.host.signInModes, IsEmpty());
}

/// What a search that fails tells: `{0}` of the first line is a key or a text.
std::string Figures(const World& world, const char* key, const char* figures) {
  return std::string(world.strings.Text(key)) + " \n" + figures;
}

// The figures of a search that found nothing, as support asks for them.
TEST(OnlineCommand, TellsHowFarASearchCame) {
  World empty({H::Answer(samples::List({}))});
  empty.Run(2);
  EXPECT_EQ(empty.OnlyMessage(), Figures(empty, "errServerIndexing", "E:30, T:0, S:0, P:0 \nM:."));

  World others(
      {H::Answer(samples::List({samples::Entry("x", R"("id":"s-1")"), samples::Entry("x", R"("id":"s-2")")})),
       H::Answer(samples::List({PageEntry("p", "7c1f", "11"), PageEntry("q", "7c1f", "12")})),
       H::Answer(samples::List({PageEntry("r", "7c1f", "13")}))});
  others.Run(2);
  EXPECT_EQ(others.OnlyMessage(), Figures(others, "errServerIndexing", "E:30000, T:0, S:2, P:3 \nM:."));

  World odd({H::Answer(R"({"error":{"code":"19999", "message": "Something failed"}})")});
  odd.Run(2);
  EXPECT_EQ(odd.OnlyMessage(),
            Figures(odd, "errServerIndexing", "E:20, T:0, S:0, P:0 \nM:Something failed."));
}

// An error of the service is not called a missing page, and too many requests are called just that; no
// further ones are sent then.
TEST(OnlineCommand, CallsErrorsOfTheServiceByTheirName) {
  World throttled({H::Answer(R"({"error":{"code":"20166","message": "Too many requests"}})", 429)});
  throttled.Run(2);
  EXPECT_EQ(throttled.OnlyMessage(),
            Figures(throttled, "errThrottled", "E:20, T:0, S:0, P:0 \nM:Too many requests."));

  World inPages(
      {H::Answer(samples::List({samples::Entry("x", R"("id":"s-1")"), samples::Entry("x", R"("id":"s-2")")})),
       H::Answer("", 429)});
  inPages.Run(2);
  EXPECT_THAT(inPages.OnlyMessage(), StartsWith(std::string(inPages.strings.Text("errThrottled"))));

  World broken({H::Answer("<html>", 503)});
  broken.Run(2);
  EXPECT_THAT(broken.OnlyMessage(), StartsWith(broken.strings.Format("errServiceReply", {"503"})));
}

// A token that has run out costs one command: the three tries carry the old token, the next command the new
// one.
TEST(OnlineCommand, RenewsTheSignInForTheNextCommand) {
  World world({H::Unauthorized(), H::Answer(kTokens), H::Unauthorized(), H::Answer(kTokens),
               H::Unauthorized(), H::Answer(kTokens)});
  world.Run(2);
  EXPECT_THAT(world.OnlyMessage(),
              HasSubstr("E:2, T:3, S:0, P:0 \nM:" + std::string(world.strings.Text("strSignInRenewed"))));
  for (const std::size_t i : {0, 2, 4})
    EXPECT_EQ(platform::HeaderValue(world.http.requests[i].headers, "Authorization"), "Bearer at-0");
  world.host.messages.clear();
  for (const std::string& body : {kSections, kPages, kPage}) world.http.Add(H::Answer(body));
  world.Run(2);
  EXPECT_EQ(world.host.insertions.size(), 1u);
  EXPECT_EQ(platform::HeaderValue(world.http.requests.back().headers, "Authorization"), "Bearer at-1");
}

// The page must belong to whoever is signed in, whatever the link says.
TEST(OnlineCommand, RefusesAPageOfAnotherAccount) {
  World world({H::Answer(kSections), H::Answer(samples::List({PageEntry("p-1", "ffff", "8a")}))});
  world.Run(2);
  EXPECT_EQ(world.OnlyMessage(), world.strings.Text("errAccountDiff"));
}

// The second command on a page costs no search; one that is not where it was is searched for again.
TEST(OnlineCommand, RemembersPagesAndNoticesWhenTheyHaveMoved) {
  World world({H::Answer(kSections), H::Answer(kPages), H::Answer(kPage)});
  world.Run(2);
  world.http.Add(H::Answer(kPage));
  world.Run(2);
  EXPECT_EQ(world.http.requests.size(), 4u);
  EXPECT_EQ(world.host.insertions.size(), 2u);

  const std::string moved = samples::List({PageEntry("p-9", "7c1f", "8a")});
  for (auto reply : {H::Answer(R"({"error":{"code":"20102","message": "gone"}})", 404), H::Answer(kSections),
                     H::Answer(moved), H::Answer(kPage)})
    world.http.Add(reply);
  world.Run(2);
  EXPECT_EQ(world.host.insertions.size(), 3u) << world.host.AllTexts();
  EXPECT_THAT(world.http.requests.back().url, HasSubstr("/pages/p-9/content"));

  // The section's list lacks the page: another one is its section now.
  const std::string elsewhere = samples::List({PageEntry("p-3", "7c1f", "33")});
  for (const std::string& body : {elsewhere, kSections, kPages, kPages}) world.http.Add(H::Answer(body));
  world.Run(10000);
  EXPECT_EQ(world.host.insertions.size(), 4u) << world.host.AllTexts();
  EXPECT_EQ(world.http.left(), 0u);
}

// A page that was found is the signed-in user's: with another account it is searched for.
TEST(OnlineCommand, RemembersPagesPerUser) {
  World world({H::Answer(kSections), H::Answer(kPages), H::Answer(kPage)});
  world.Run(2);
  world.account.OnlineOneNoteUserId = "id-9";
  for (const std::string& body : {kSections, kPages, kPage}) world.http.Add(H::Answer(body));
  world.Run(2);
  EXPECT_EQ(world.http.requests.size(), 6u);
}

// Cancel ends a search at once, without a word.
TEST(OnlineCommand, EndsQuietlyWhenTheUserCancels) {
  World world({H::Answer(kSections)});
  world.host.cancelAfterQuestions = 3;
  world.Run(2);
  EXPECT_THAT(world.host.messages, IsEmpty());
  EXPECT_LE(world.http.requests.size(), 1u);
}

// Changes are sent once: a service that has taken them must not get them again.
TEST(OnlineCommand, SendsChangesOnce) {
  World world({H::Failed(), H::Answer(kTokens)});
  MOnlineOneNoteMain main(world.host, world.session, world.http, world.clock);
  EXPECT_FALSE(main.UpdatePageContent("p!1", R"([{"target":"body"}])"));
  ASSERT_EQ(world.http.requests.size(), 2u);
  EXPECT_EQ(world.http.requests[0].method, platform::HttpMethod::Patch);
  EXPECT_EQ(world.http.requests[0].url, "https://graph.test/v1.0/users/id-0/onenote/pages/p!1/content");
  EXPECT_EQ(platform::HeaderValue(world.http.requests[0].headers, "Content-Length"), "19");
  EXPECT_EQ(world.account.OnlineOneNoteAccessToken, "at-1");
}

// A section's name in the filter cannot end the query; its quote stays, as the service is asked literally.
TEST(OnlineCommand, EscapesTheSectionsName) {
  World world({H::Answer(samples::List({}))});
  world.host.link =
      "onenote:https://docs.test/7c1f/Documents/R%26D%20%231%2B'x.one#T&section-id={5D}&page-id={8A}&end";
  world.Run(2);
  EXPECT_THAT(world.http.requests[0].url,
              testing::EndsWith("?filter=tolower(name)%20eq%20'r%26d%20%231%2B'x'"));
}

}  // namespace
}  // namespace quill::online
