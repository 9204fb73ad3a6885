#include <gtest/gtest.h>

#include "content/color_hex.h"
#include "content/entities.h"
#include "content/first_link.h"
#include "content/strip_tags.h"
#include "content/version_number.h"

namespace quill::content {
namespace {

using Pairs = std::vector<std::pair<std::string, std::string>>;

// Titles and links come with references of every kind, doubly escaped ones included.
TEST(DecodeHtmlEntities, DecodesInTheFixedOrder) {
  const Pairs cases = {{"&#65;&#x42;", "AB"},
                       {"&#X42;", std::string(1, '\0')},
                       {"&#38;#65;", "A"},
                       {"x; &#65;", "x; A"},
                       {"caf&eacute; &EACUTE; &Agrave;", "caf\xC3\xA9 &EACUTE; \xC3\x80"},
                       {"&nbsp;&yuml;", "\xC2\xA0\xC3\xBF"},
                       {"&amp;lt;&amp;quot;&amp;eacute;", "<\"&eacute;"},
                       {"&amp;#65;", "A"},
                       {"&#38;", "&"},
                       {"&#38;#65", "&#65"},
                       {"&#4x1;&#x4z1;", "\x04\x04"},
                       {"&#xD83D;&#xDE00;", "\xF0\x9F\x98\x80"},
                       {"&#xD83D;a&#xDE00;",
                        "\xEF\xBF\xBD"
                        "a\xEF\xBF\xBD"},
                       {"&#x1F600;&#4294967361;", "\xF0\x9F\x98\x80\xEF\xBF\xBD"}};
  for (const auto& [text, expected] : cases) EXPECT_EQ(DecodeHtmlEntities(text), expected) << text;
}

// "&amp;lt;" typed by the user must come back as "&lt;" here, and quotes stay quotes in text.
TEST(BasicEntities, AreDecodedOnceAndEscapedWithoutQuotes) {
  EXPECT_EQ(DecodeBasicEntities("a&nbsp;&amp;lt;&lt;&gt;&apos;&quot;&copy;"), "a &lt;<>'\"&copy;");
  EXPECT_EQ(EscapeXmlText("&lt; <a b=\"c\">'"), "&amp;lt; &lt;a b=\"c\"&gt;'");
}

// A "<" in running text must not swallow the rest of a title.
TEST(StripTags, StopsAtWhatIsNoTag) {
  const Pairs cases = {{"<p>a<b>c</b></p>", "ac"}, {"a<b", "a<b"},    {"x<>y<b>z", "x<>y<b>z"},
                       {"<a <b>c", "c"},           {"a>b<i>", "a>b"}, {"&lt;b&gt;", "&lt;b&gt;"}};
  for (const auto& [html, expected] : cases) EXPECT_EQ(StripTags(html), expected) << html;
}

// Attachments and variable links are found by this: both quotes, escapes, and no link at all.
TEST(GetFirstLink, ReadsTargetAndText) {
  const auto expect = [](const char* html, const char* target, const char* text) {
    const FirstLink link = GetFirstLink(html);
    EXPECT_EQ(link.target, target) << html;
    EXPECT_EQ(link.text, text) << html;
  };
  expect("<p><a href=\"a%20b?x=1&amp;y=%C3%A9\"><b>T</b>ext</a><a href=\"2\">", "a b?x=1&y=\xC3\xA9", "Text");
  expect("<a class='x' href='qvar://%ONEDRIVE%/f'>t</a>", "qvar://%ONEDRIVE%/f", "t");
  expect("<a href=\"%FF\">t</a>", "", "t");
  expect("<a href=\"x\">never closed", "", "");
  expect("no link", "", "");
}

// Half is 7f, not 80: the range is split into 256 equal steps.
TEST(ColorToHex, TruncatesInsteadOfRounding) {
  EXPECT_EQ(ColorToHex(1, 0.5, 0), "#ff7f00");
  EXPECT_EQ(ColorToHex(1.5, -1, 1.0 / 256), "#ff0000");
}

// A wrong comparison offers an older version as an update, for ever.
TEST(SplitVersion, ReadsFourPartsAndComparesThem) {
  EXPECT_EQ(SplitVersion("2.1"), (VersionParts{2, 1, 0, 0}));
  EXPECT_EQ(SplitVersion("7"), (VersionParts{7, 0, 0, 0}));
  EXPECT_EQ(SplitVersion("1.x.6beta.4.5"), (VersionParts{1, 0, 6, 4}));
  EXPECT_TRUE(CompareVersions("1.10", "1.9.9") > 0);
  EXPECT_TRUE(CompareVersions("2.1", "2.1.0.0") == 0);
}

}  // namespace
}  // namespace quill::content
