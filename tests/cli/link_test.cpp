#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "quill_program.h"

namespace quill::cli {
namespace {

using testing::HasSubstr;

// Scripts get every part of a link, also straight from "Copy Link to Page" with its web line.
TEST_F(Quill, TakesLinksApart) {
  const std::string link =
      "onenote:https://d.docs.live.net/7c1f/Documents/N/"
      "Caf%C3%A9.one#A%26B&section-id={5D-0C}&page-id={8A-F5}";
  const Output copied = Run("link 'https://web/view\r\n" + link + "&end\r\n'");
  EXPECT_EQ(copied.status, 0) << copied.err;
  const nlohmann::json expected = {{"link", link + "&end"}, {"documentHost", "d.docs.live.net"},
                                   {"accountId", "7c1f"},   {"sectionName", "Caf\u00e9"},
                                   {"pageTitle", "A&B"},    {"sectionId", "5D-0C"},
                                   {"pageId", "8A-F5"},     {"objectId", nullptr}};
  EXPECT_EQ(nlohmann::json::parse(copied.out), expected);
  const Output paragraph = Run("link '" + link + "&object-id={7}&3E'");
  EXPECT_EQ(nlohmann::json::parse(paragraph.out)["objectId"], "{7}&3E");
}

// A notebook kept elsewhere, as in trials, is still a personal one.
TEST_F(Quill, AsksTheEnvironmentForTheDocumentHost) {
  ::setenv("QUILL_DOCUMENT_HOST", "localhost:8080", 1);
  const Output own = Run("link onenote:https://localhost:8080/7c1f/Documents/N/A.one#");
  ::unsetenv("QUILL_DOCUMENT_HOST");
  EXPECT_EQ(nlohmann::json::parse(own.out)["accountId"], "7c1f");
}

// What is no link is a wrong call, told in one line.
TEST_F(Quill, RefusesWhatIsNoLink) {
  for (const char* words : {"link https://d.docs.live.net/7c/A.one", "link ''", "link 'onenote:https:// '",
                            "link 'a\nb'", "link \"$(printf '\\303')\"", "link"}) {
    const Output refused = Run(words);
    EXPECT_EQ(refused.status, 2) << words;
    EXPECT_EQ(refused.out, "");
    EXPECT_THAT(refused.err, testing::MatchesRegex("quill: [^\n]*link[^\n]*\n")) << words;
  }
  EXPECT_THAT(Run("link abc").err, HasSubstr("\"abc\" is no client link"));
}

}  // namespace
}  // namespace quill::cli
