#include "content/unicode_text.h"

#include <gtest/gtest.h>

namespace quill::content {
namespace {

// Table cells lose their blanks but keep their line breaks; other texts lose both.
TEST(Trim, TellsBlanksFromLineBreaks) {
  const std::string text = " \t\xC2\xA0\xE3\x80\x80\n a \xC2\x85\xE2\x80\xA8\xE2\x80\x89";
  EXPECT_EQ(TrimBlanks(text), "\n a \xC2\x85\xE2\x80\xA8");
  EXPECT_EQ(TrimWhite(text), "a");
  EXPECT_EQ(TrimWhite(" \r\n\v\f"), "");
  EXPECT_EQ(TrimBlanks("\xE2\x80\x8B"
                       "a\xA0"),
            "\xE2\x80\x8B"
            "a\xA0");
}

// "Exactly two lines" counts CR LF as two breaks.
TEST(SplitAtNewlines, TakesEachBreakByItself) {
  EXPECT_EQ(SplitAtNewlines("a\r\nb\xE2\x80\xA9\xC2\x85"),
            (std::vector<std::string_view>{"a", "", "b", "", ""}));
  EXPECT_EQ(SplitAtNewlines(""), std::vector<std::string_view>{""});
}

// A clipboard may hold anything; counts go by UTF-16 units.
TEST(Utf16, ConvertsAndReplacesWhatIsInvalid) {
  EXPECT_EQ(ToUtf16("a\xC3\xA9\xF0\x9F\x98\x80"), u"a\u00E9\U0001F600");
  EXPECT_EQ(ToUtf16("\xFF"
                    "a\xE4\xB8"),
            u"\uFFFDa\uFFFD\uFFFD");
  EXPECT_EQ(ToUtf8(u"a\u00E9\U0001F600"), "a\xC3\xA9\xF0\x9F\x98\x80");
  EXPECT_EQ(ToUtf8(std::u16string{0xD83D, u'a', 0xDE00}),
            "\xEF\xBF\xBD"
            "a\xEF\xBF\xBD");
  for (const char* bad :
       {"\x80", "\xC1\x81", "\xE0\x80\x80", "\xED\xBF\xBF", "\xF4\x90\x80\x80", "\xF5", "\xE4\xB8"}) {
    EXPECT_FALSE(IsValidUtf8(std::string(20, 'a') + bad));
  }
}

// Variable links carry "%ONEDRIVE%" as typed, and arrive escaped again at times.
TEST(Percent, UnescapesOnlyWhatIsAnEscape) {
  EXPECT_EQ(PercentUnescape("qvar://%ONEDRIVE%/a%20b%"), "qvar://%ONEDRIVE%/a b%");
  EXPECT_EQ(PercentUnescape("%25ONEDRIVE%25%2"), "%ONEDRIVE%%2");
  EXPECT_EQ(PercentUnescape("a%FFb"), "");
  EXPECT_EQ(PercentEscape("Az9!$&'()*+,-./:;=?@_~ \"#%<>[\\]^`{|}\xC3\xA9"),
            "Az9!$&'()*+,-./:;=?@_~%20%22%23%25%3C%3E%5B%5C%5D%5E%60%7B%7C%7D%C3%A9");
}

// Fields and service answers hold "4.5", "6beta" or twenty digits; none of them may be an error.
TEST(LeadingInteger, ReadsWhatItCan) {
  const std::pair<const char*, std::int64_t> cases[] = {{" \n42x", 42},
                                                        {"-7.9", -7},
                                                        {"+3", 3},
                                                        {"6beta", 6},
                                                        {"x6", 0},
                                                        {"", 0},
                                                        {"- 1", 0},
                                                        {"9223372036854775807", INT64_MAX},
                                                        {"-9223372036854775808", INT64_MIN},
                                                        {"99999999999999999999", INT64_MAX},
                                                        {"-99999999999999999999", INT64_MIN}};
  for (const auto& [text, expected] : cases) EXPECT_EQ(LeadingInteger(text), expected) << text;
}

// Greek, German and Turkish users see at once when only single characters are mapped.
TEST(Case, UsesTheFullMappingWithoutALanguage) {
  EXPECT_EQ(ToLower("\xCE\x9F\xCE\x94\xCE\x9F\xCE\xA3 I"), "\xCE\xBF\xCE\xB4\xCE\xBF\xCF\x82 i");
  EXPECT_EQ(ToUpper("stra\xC3\x9F"
                    "e i \xEF\xAC\x81"),
            "STRASSE I FI");
}

}  // namespace
}  // namespace quill::content
