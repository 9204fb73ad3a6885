#include "practice/service/faults.h"

#include <gmock/gmock.h>

#include "practice_service/service_world.h"

namespace quill::test {
namespace {

using practice::Fault;
using practice::FaultKind;
using practice::FaultPlan;
using practice::ParseFault;
using testing::ElementsAre;
using testing::HasSubstr;

TEST(ParseFault, ReadsNamePathAndNumbers) {
  const auto fault = ParseFault("not-found@/pages?top=1+2x13");
  ASSERT_TRUE(fault.ok());
  EXPECT_EQ(fault->kind, FaultKind::NotFound);
  EXPECT_EQ(fault->path, "/pages?top=1");
  EXPECT_EQ(fault->skip, 2);
  EXPECT_EQ(fault->count, 13);
  EXPECT_EQ(practice::FaultText(*ParseFault(" reset-before@/me x2 ")), "reset-before@/mex2");
  for (const char* wrong : {"", "x2", "@/pages", "notfound", "hang x0", "hang x99999999999", "hang+-1"})
    EXPECT_FALSE(ParseFault(wrong).ok()) << wrong;
  for (const FaultKind kind : practice::AllFaults())
    EXPECT_EQ(ParseFault(practice::FaultName(kind))->kind, kind) << practice::FaultName(kind);
}

// The order in which several faults strike is what a test is written by.
TEST(FaultPlan, StrikesAfterItsSkipAndAsOftenAsItSays) {
  FaultPlan plan;
  plan.Add(*ParseFault("not-found@/a+1x2"));
  plan.Add(*ParseFault("throttled@/a"));
  plan.Add(*ParseFault("page-moves"));
  std::vector<std::string_view> struck;
  for (const char* path : {"/b", "/a", "/a", "/a", "/a", "/b", "/pages"}) {
    const auto kind = plan.Take(path);
    struck.push_back(kind ? practice::FaultName(*kind) : "-");
  }
  EXPECT_THAT(struck,
              ElementsAre("-", "throttled", "not-found", "not-found", "throttled", "-", "page-moves"));
}

class Faults : public ServiceWorld {
 protected:
  void Plan(const std::string& text) { service->Faults().Replace({*ParseFault(text)}); }
  Answer Notebooks() { return Get("/v1.0/me/onenote/notebooks"); }
  static std::string Header(const Answer& answer, const char* name) {
    return std::string(platform::HeaderValue(answer->headers, name));
  }
};

// What a client sees of the faults that are answers.
TEST_F(Faults, ThatAnswerSayWhatTheyAre) {
  const std::pair<const char*, const char*> kAnswers[] = {
      {"unauthorized", "401 40001"}, {"unauthorized-without-challenge", "401 40001"},
      {"forbidden", "403 40004"},    {"not-found", "404 20102"},
      {"throttled", "429 20166"},    {"throttled-retry-after", "429 20166"},
      {"server-error", "500 19999"}, {"unavailable", "503 30101"},
      {"token-expires", "401 40001"}};
  for (const auto& [name, told] : kAnswers) {
    token = service->IssueTokens().access;
    Plan(std::string(name) + "x1");
    const Answer answer = Notebooks();
    EXPECT_EQ(Told(answer), told) << name;
    const bool hasChallenge =
        std::string(told).starts_with("401") && !std::string(name).ends_with("challenge");
    EXPECT_EQ(!Header(answer, "WWW-Authenticate").empty(), hasChallenge) << name;
    EXPECT_EQ(!Header(answer, "Retry-After").empty(), std::string(name) == "throttled-retry-after") << name;
    EXPECT_EQ(Notebooks()->status, std::string(name) == "token-expires" ? 401 : 200) << name;
  }
}

TEST_F(Faults, ThatAnswerSomethingElse) {
  Plan("not-json");
  EXPECT_THAT(Notebooks()->body, HasSubstr("<!DOCTYPE html>"));
  Plan("huge-body");
  const Answer huge = Notebooks();
  EXPECT_EQ(huge->status, 200);
  EXPECT_EQ(huge->body.size(), std::size_t{50} << 20);
}

// A reset is one, not an orderly close: clients treat the two differently.
TEST_F(Faults, ThatResetAreToldAsResets) {
  for (const char* name : {"reset-before", "reset-during"}) {
    Plan(name);
    const Answer answer = Notebooks();
    ASSERT_FALSE(answer.ok()) << name;
    EXPECT_EQ(answer.error().problem, platform::HttpProblem::CutOff) << name;
    EXPECT_THAT(answer.error().detail, HasSubstr("reset by peer")) << name;
  }
  Plan("truncated");
  const Answer answer = Notebooks();
  ASSERT_FALSE(answer.ok());
  EXPECT_EQ(answer.error().problem, platform::HttpProblem::CutOff);
  EXPECT_THAT(answer.error().detail, HasSubstr("bytes remaining to read"));
}

// The answer arrives whole however large, and the connection is gone afterwards.
TEST_F(Faults, AResetBehindTheAnswerLosesNothingOfIt) {
  Plan("reset-after");
  const int before = service->Connections();
  for (int i = 0; i < 20; ++i)
    EXPECT_EQ(List("sections/" + SectionId(0) + "/pages?top=100")["value"].size(), 100u);
  EXPECT_EQ(service->Connections() - before, 40);
}

// Neither a code nor a page is touched by a request that is struck.
TEST_F(Faults, StrikeBeforeTheWorkIsDone) {
  const std::string path = "/v1.0/me/onenote/pages/" + content::PercentEscape(FirstPageId()) + "/content";
  const std::string before = Get(path)->body;
  const std::string change = R"([{"target":"body","action":"append","content":"<p>new</p>"}])";
  for (const char* name : {"reset-before", "reset-during", "truncated", "throttled", "huge-body"}) {
    Plan(std::string(name) + "@/content x1");
    (void)Send(platform::HttpMethod::Patch, path, change, {{"Content-Type", "application/json"}});
    EXPECT_EQ(Get(path)->body, before) << name;
  }
  Plan("reset-after@/content x1");
  (void)Send(platform::HttpMethod::Patch, path, change, {{"Content-Type", "application/json"}});
  EXPECT_NE(Get(path)->body, before);
}

// A page that moves between two batches is missed by whoever only adds to "skip".
TEST_F(Faults, BendListsOfPages) {
  const std::string pages = "sections/" + SectionId(0) + "/pages";
  Plan("page-moves@top=100&skip=0 x1");
  EXPECT_EQ(Titles(List(pages + "?top=100&skip=0")).back(), "Page 99");
  EXPECT_EQ(Titles(List(pages + "?top=100&skip=100")).front(), "Page 101");
  EXPECT_EQ(Titles(List(pages + "?top=100&skip=200")).back(), "Page 0");
  Plan("ignored-skip");
  EXPECT_EQ(Titles(List(pages + "?top=5&skip=100")).front(), "Page 1");
}

// A plan can be made from outside, and a wrong one leaves it as it was.
TEST_F(Faults, CanBePlannedByRequests) {
  const auto plan = [&](platform::HttpMethod method, const std::string& body) {
    return Send(method, "/practice/faults", body, {{"Content-Type", "application/json"}});
  };
  EXPECT_EQ(plan(platform::HttpMethod::Post, R"(["not-found@/pages x2", "hang+1"])")->body,
            R"({"faults":["not-found@/pagesx2","hang+1"],"latencyMs":0})");
  EXPECT_EQ(plan(platform::HttpMethod::Post, R"({"latencyMs":5})")->status, 200);
  for (const char* wrong :
       {R"(["nonsense"])", "[3]", "{}", "x", R"({"latencyMs":-1})", R"({"latencyMs":99999999})"})
    EXPECT_EQ(plan(platform::HttpMethod::Post, wrong)->status, 400) << wrong;
  EXPECT_EQ(Get("/practice/faults")->body, R"({"faults":["not-found@/pagesx2","hang+1"],"latencyMs":5})");
  EXPECT_EQ(plan(platform::HttpMethod::Delete, "")->body, R"({"faults":[],"latencyMs":0})");
  EXPECT_EQ(
      Send(platform::HttpMethod::Post, "/practice/faults", "[]", {{"Origin", "http://example.com"}})->status,
      403)
      << "another site's page";
}

}  // namespace
}  // namespace quill::test
