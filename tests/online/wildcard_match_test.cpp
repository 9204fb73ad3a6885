#include "online/wildcard_match.h"

#include <gtest/gtest.h>

#include <chrono>
#include <random>

#include "link_oracles.h"

namespace quill::online {
namespace {

struct Case {
  const char* text;
  const char* pattern;
  bool fits;
};

// Ids differ in case between the service and the desktop application.
TEST(MatchesWildcards, ComparesWholeTextsInAnyCase) {
  for (const Case& c : {Case{"8AF5-B1", "8af5-b1", true},
                        {"8af5-b1", "8AF5", false},
                        {"", "", true},
                        {"", "*", true},
                        {"a", "", false},
                        {"", "?", false},
                        {"7c1f", "7*F", true},
                        {"ab", "a?b", false},
                        {"a*c", "a*", true},
                        {"\xC3\x89t\xC3\xA9", "\xC3\xA9?\xC3\x89", true},
                        {"\xC3\xA9", "??", false},
                        {"\xCE\x9F\xCE\xA3\xCE\x91", "\xCE\xBF\xCF\x82*", true},
                        {"\xFF", "?", true},
                        {"\xC3", "\xC3", true},
                        {"\xC3\xA9", "\xC3*", false}}) {
    EXPECT_EQ(MatchesWildcards(c.text, c.pattern), c.fits) << c.text << " " << c.pattern;
  }
}

// A star that gives way too little finds no page, one that gives way too much the wrong one.
TEST(MatchesWildcards, AgreesWithTryingEverything) {
  std::mt19937 random(11);
  int fitting = 0;
  for (int i = 0; i < 200'000; ++i) {
    std::string text(random() % 9, ' ');
    std::string pattern(random() % 7, ' ');
    for (char& c : text) c = "aAb"[random() % 3];
    for (char& c : pattern) c = "ab*?"[random() % 4];
    const bool fits = oracle::MatchesWildcards(text, pattern);
    ASSERT_EQ(MatchesWildcards(text, pattern), fits) << text << " " << pattern;
    fitting += fits ? 1 : 0;
  }
  EXPECT_GT(fitting, 10'000);
}

// A pattern of stars from a broken or hostile service must not hang the command.
TEST(MatchesWildcards, NeverTriesStarsAgainstEachOther) {
  std::string pattern;
  for (int i = 0; i < 500; ++i) pattern += "*a";
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_FALSE(MatchesWildcards(std::string(2'000, 'a'), pattern + "b"));
  EXPECT_TRUE(MatchesWildcards(std::string(2'000, 'a'), pattern));
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(2));
}

}  // namespace
}  // namespace quill::online
