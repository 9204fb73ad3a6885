#include "online/link_conversions.h"

#include <gtest/gtest.h>

#include <random>
#include <utility>

#include "link_oracles.h"
#include "online/client_link.h"

namespace quill::online {
namespace {

using Pairs = std::vector<std::pair<std::string, std::string>>;

// The desktop application opens nothing when an id of its link is bare.
TEST(ServiceLink, GetsBracesAroundBareIds) {
  const std::string begin = "onenote:https://h/a/b.one#T";
  const Pairs cases = {
      {"&section-id=5D&page-id=8A&end", "&section-id={5D}&page-id={8A}&end"},
      {"&section-id={5D}&page-id=8A&end", "&section-id={5D}&page-id={8A}&end"},
      {"&section-id={5D}&page-id={8A}&end", "&section-id={5D}&page-id={8A}&end"},
      {"&section-id=5D&page-id=8A&object-id={7}&3E", "&section-id={5D}&page-id={8A}&object-id={7}&3E"},
      {"&page-id=8A&section-id=5D&x&page-id=8A&page-id=8B&",
       "&page-id={8A}&section-id={5D}&x&page-id={8A}&page-id=8B&"},
      // Not between "&" and "&", empty, or with a part in braces: as it was.
      {"section-id=5D&page-id=8A", "section-id=5D&page-id=8A"},
      {"&section-id=&page-id={}&end", "&section-id=&page-id={}&end"},
      {"&section-id=x{5D}y&page-id={8A&end", "&section-id=x{5D}y&page-id={{8A}&end"},
      {"&page-id=8A&page-id=8A&end", "&page-id={8A}&page-id=8A&end"}};
  for (const auto& [bare, braced] : cases) {
    EXPECT_EQ(ConvertJsonClientUrl2OldClientUrl(begin + bare), begin + braced);
    EXPECT_EQ(ConvertJsonClientUrl2OldClientUrl(begin + braced), begin + braced);
  }
}

// A contents entry has to lead to its heading, whatever number the service gave it.
TEST(ElementId, BecomesAnObjectId) {
  const std::string guid = "8af51c10-9e77-4d02-b1c3-60f2d4a8e915";
  const Pairs cases = {{"{" + guid + "}{62}", "{" + guid + "}&3E"},
                       {"{" + guid + "}{5}{1}rest", "{" + guid + "}&05"},
                       {"{" + guid + "}{4095}", "{" + guid + "}&FFF"},
                       {"{" + guid + "}{ 12x}", "{" + guid + "}&0C"},
                       {"{" + guid + "}{-1}", "{" + guid + "}&FFFFFFFF"},
                       {"{" + guid + "}{4294967297}", "{" + guid + "}&01"},
                       {"{" + guid + "}{99999999999999999999}", "{" + guid + "}&FFFFFFFF"},
                       {"{" + guid + "}", "{" + guid + "}&00"},
                       {"{" + guid, "{}&00"},
                       {"", "{}&00"},
                       {"}{9}", "{9}&09"}};
  for (const auto& [element, object] : cases) {
    EXPECT_EQ(ConvertOnlineHtmlObjId2ClientUrlObjId(element), object) << element;
  }
}

// Both conversions on their way into a link and out of it again.
TEST(Conversions, LoseNothing) {
  for (unsigned number = 0; number < 70'000; number += 7) {
    const std::string object =
        ConvertOnlineHtmlObjId2ClientUrlObjId("{8A-F5}{" + std::to_string(number) + "}");
    const std::string link = ConvertJsonClientUrl2OldClientUrl(
        "onenote:https://h/a.one#T&section-id=5D&page-id=8A&object-id=" + object + "&end");
    EXPECT_EQ(SectionIdOfLink(link), "5D");
    EXPECT_EQ(PageIdOfLink(link), "8A");
    const std::string read(ObjectIdOfLink(link));
    ASSERT_TRUE(read.starts_with("{8A-F5}&") && read.size() >= 10) << read;
    EXPECT_EQ(std::stoul(read.substr(8), nullptr, 16), number);
  }
}

// Links of no shape that anybody thought of: converting twice is converting once, and ids stay the same ids.
TEST(Conversions, AreStableOnAnyText) {
  std::mt19937 random(20240131);
  int changed = 0;
  for (int i = 0; i < 50'000; ++i) {
    std::string seed(random() % 24, '\0');
    for (char& c : seed) c = static_cast<char>(random() % 25);
    const std::string link =
        oracle::GrowLink(seed) + "&section-id=" + oracle::GrowLink(seed.substr(0, 1)) + "&";
    const std::string converted = ConvertJsonClientUrl2OldClientUrl(link);
    ASSERT_EQ(ConvertJsonClientUrl2OldClientUrl(converted), converted) << link;
    const bool hasBraces = link.find_first_of("{}") != std::string::npos;
    if (hasBraces || link.find("section-id=") != link.rfind("section-id=")) continue;
    ASSERT_EQ(SectionIdOfLink(converted), SectionIdOfLink(link)) << link;
    changed += converted != link ? 1 : 0;
  }
  EXPECT_GT(changed, 100);
}

}  // namespace
}  // namespace quill::online
