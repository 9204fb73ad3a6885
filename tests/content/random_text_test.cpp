#include <gtest/gtest.h>

#include <chrono>
#include <random>

#include "content/entities.h"
#include "content/first_link.h"
#include "content/html_normalizer.h"
#include "content/markup_grammar.h"
#include "content/oracles.h"
#include "content/strip_tags.h"
#include "content/text_between.h"
#include "content/working_document.h"
#include "content/xml_strictness.h"

namespace quill::content {
namespace {

/// The same bytes in every run.
class Seeds {
 public:
  std::string Next(std::size_t maxLength) {
    std::string bytes(m_random() % maxLength, '\0');
    for (char& c : bytes) c = static_cast<char>(m_random() % 110);
    return bytes;
  }

 private:
  std::mt19937 m_random{20240131};
};

// The fast code takes short cuts on every line; any of them that changes a result is a damaged page.
TEST(RandomText, FastAndLiteralReadingsAgree) {
  Seeds seeds;
  for (int i = 0; i < 20'000; ++i) {
    const std::string text = test::GrowFragment(seeds.Next(24));
    ASSERT_EQ(HtmlToXml(text), oracle::HtmlToXml(text)) << text;
    ASSERT_EQ(StripTags(text), oracle::StripTags(text)) << text;
    ASSERT_EQ(DecodeBasicEntities(text), oracle::DecodeBasicEntities(text)) << text;
  }
  constexpr std::string_view kReferences[] = {"&",    "#",     ";",   "x",       "3", "8",
                                              "amp;", "&#38;", "&#x", "eacute;", "lt"};
  std::mt19937 random(7);
  for (int i = 0; i < 20'000; ++i) {
    std::string text;
    for (std::size_t n = random() % 16; n-- > 0;) text += kReferences[random() % std::size(kReferences)];
    ASSERT_EQ(DecodeHtmlEntities(text), oracle::DecodeHtmlEntities(text)) << text;
  }
}

// What is refused or accepted must not depend on the library behind the tree; and what was written once is
// written the same again.
TEST(RandomText, DocumentsAreJudgedLikeLibxml2AndWrittenStably) {
  Seeds seeds;
  int accepted = 0;
  for (int i = 0; i < 30'000; ++i) {
    const std::string xml = test::GrowDocument(seeds.Next(i % 2 == 0 ? 4 : 16));
    if (xml.find("<!DOCTYPE") != std::string::npos || xml.find("<?XML") != std::string::npos) continue;
    ASSERT_EQ(!FindXmlFault(xml), oracle::IsWellFormed(xml)) << xml;
    const auto document = WorkingDocument::Parse(xml);
    ASSERT_EQ(document.ok(), !FindXmlFault(xml)) << xml;
    if (!document) continue;
    ++accepted;
    const auto again = WorkingDocument::Parse(document->Xml());
    ASSERT_TRUE(again.ok()) << xml;
    ASSERT_EQ(again->Xml(), document->Xml()) << xml;
  }
  EXPECT_GT(accepted, 1000);
}

std::string Repeated(std::string_view piece, std::size_t count) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) text += piece;
  return text;
}

// Clipboards are hostile at times; each of these takes minutes when a helper starts over from the beginning.
TEST(HostileText, IsWorkedOffInOneGo) {
  constexpr std::size_t kCount = 300'000;
  const auto begin = std::chrono::steady_clock::now();
  for (const char* piece :
       {"<", "<![if ", "<![endif]>", "<![if x<![endif]>", "alt=\"", "alt=\"=\"", "\"", "width=", "<BR",
        "<img ", "&#", ";", "&#38;", "<a", "<>", "%", "\xC2\xA0", "<!--Start", "alt=\"alt="}) {
    const std::string text = Repeated(piece, kCount);
    const std::size_t sizes = HtmlToXml(text).size() + HtmlToXml("<![if " + text).size() +
                              XmlToHtml(text).size() + DecodeHtmlEntities(text).size() +
                              StripTags(text).size() + GetFirstLink(text).text.size() +
                              StripFragmentMarkers(text).size();
    EXPECT_GT(sizes, text.size());
  }
  std::string attributes;
  for (std::size_t i = 0; i < 100'000; ++i) attributes += " a" + std::to_string(i) + "=''";
  EXPECT_TRUE(WorkingDocument::Parse("<a" + attributes + "/>").ok());
  EXPECT_FALSE(WorkingDocument::Parse("<a" + attributes + " a77777=''/>").ok());
  EXPECT_FALSE(WorkingDocument::Parse(Repeated("<a>", kCount)).ok());
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(60));
}

}  // namespace
}  // namespace quill::content
