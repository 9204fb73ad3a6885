#include "online/service_list.h"

#include <gtest/gtest.h>

#include "content/unicode_text.h"

namespace quill::online {
namespace {

using nlohmann::json;

// The service's lists come as they like; what is no list is none, and nothing here throws.
TEST(ServiceList, HasAValueOnlyInAWholeAnswer) {
  EXPECT_EQ(ValueOf("\xEF\xBB\xBF{\"@odata.context\":\"x\",\"value\":[{\"id\":1},2]}")->size(), 2u);
  EXPECT_TRUE(ValueOf(R"({"value":[]})")->empty());
  for (const char* body :
       {"", "{", R"({"value":null})", R"({"value":{"a":1}})", "[1]", "null", "<html></html>",
        R"({"values":[1]})", "{\"value\":[\"\xFF\"]}", R"({"value":[1]} x)"}) {
    EXPECT_FALSE(ValueOf(body)) << body;
  }
  EXPECT_FALSE(ValueOf(std::string(200'000, '['))) << "depth must not cost the stack";
}

// `null` stands for a missing value, and numbers for texts and truths.
TEST(ServiceList, ReadsWhatEntriesReallyHold) {
  const json entry = json::parse(
      R"({"id":7,"title":null,"links":{"href":"h","no":[]},"level":2,"top":1.9,"big":18446744073709551615,)"
      R"("huge":1e300,"yes":true,"one":1,"zero":0.0,"word":"true"})");
  EXPECT_EQ(TextAt(entry, {"id"}), "7");
  EXPECT_EQ(TextAt(entry, {"links", "href"}), "h");
  for (const char* name : {"title", "none", "links", "yes"}) EXPECT_EQ(TextAt(entry, {name}), "") << name;
  EXPECT_EQ(TextAt(entry, {"title", "x"}), "");
  EXPECT_EQ(TextAt(entry, {"links", "no", "href"}), "");
  EXPECT_EQ(TextAt(json(), {"id"}), "");

  EXPECT_EQ(NumberAt(entry, "level"), 2);
  EXPECT_EQ(NumberAt(entry, "top"), 1);
  for (const char* name : {"big", "huge", "word", "title", "none"})
    EXPECT_FALSE(NumberAt(entry, name)) << name;

  EXPECT_TRUE(IsTrueAt(entry, "yes") && IsTrueAt(entry, "one"));
  for (const char* name : {"zero", "word", "title", "none", "links"})
    EXPECT_FALSE(IsTrueAt(entry, name)) << name;
  EXPECT_FALSE(IsTrueAt(json::array({1}), "yes"));
}

// Why the service refused is shown to the user, however it says it.
TEST(ServiceError, IsReadFromAnyAnswer) {
  EXPECT_FALSE(ErrorOf({200, R"({"error":{"code":"1"}})"}));
  EXPECT_FALSE(ErrorOf({204, ""}));
  const auto error =
      ErrorOf({404, R"({"error":{"code":"20112","message":"No such page.","innerError":{}}})"});
  EXPECT_EQ(error->status, 404);
  EXPECT_EQ(error->code, "20112");
  EXPECT_EQ(error->message, "No such page.");
  EXPECT_FALSE(error->IsThrottled());
  EXPECT_TRUE(ErrorOf({429, "<html>slow down</html>"})->IsThrottled());
  EXPECT_TRUE(ErrorOf({400, R"({"error":{"code":20166}})"})->IsThrottled());
  for (const char* body : {"", "null", R"({"error":"invalid_grant"})", R"({"error":{"message":null}})"})
    EXPECT_EQ(ErrorOf({500, body})->message, "") << body;
}

// A message goes into a window: it is kept short, and no character is cut in two.
TEST(ServiceError, HasAShortMessage) {
  std::string accents;
  for (int i = 0; i < 200; ++i) accents += "\xC3\xA9";
  const json body = {{"error", {{"code", "1"}, {"message", "x" + accents}}}};
  const auto error = ErrorOf({400, body.dump()});
  EXPECT_EQ(error->message.size(), 299u);
  EXPECT_TRUE(content::IsValidUtf8(error->message));
}

}  // namespace
}  // namespace quill::online
