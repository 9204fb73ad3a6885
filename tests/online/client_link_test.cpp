#include "online/client_link.h"

#include <gtest/gtest.h>

#include <chrono>

#include "link_oracles.h"
#include "online/account_id.h"
#include "online/link_conversions.h"
#include "online/protected_ampersands.h"

namespace quill::online {
namespace {

constexpr const char* kHost = "d.docs.live.net";
#define SECTION_ID "5D0C7A1E-2F43-4B8A-9C6D-3E1F7A90B254"
#define PAGE_ID "8AF51C10-9E77-4D02-B1C3-60F2D4A8E915"
#define IDS "&section-id={" SECTION_ID "}&page-id={" PAGE_ID "}"

void ExpectParts(const std::string& text, const PageClientLink& expected) {
  const PageClientLink parts = ReadClientLink(text, kHost);
  EXPECT_EQ(parts.link, expected.link) << text;
  EXPECT_EQ(parts.documentHost, expected.documentHost) << text;
  EXPECT_EQ(parts.accountId, expected.accountId) << text;
  EXPECT_EQ(parts.sectionName, expected.sectionName) << text;
  EXPECT_EQ(parts.pageTitle, expected.pageTitle) << text;
  EXPECT_EQ(parts.sectionId, expected.sectionId) << text;
  EXPECT_EQ(parts.pageId, expected.pageId) << text;
  EXPECT_EQ(parts.objectId, expected.objectId) << text;
}

// Whatever is read wrong here makes every online command look for the wrong page.
TEST(ClientLink, IsReadAsOneNoteWritesIt) {
  const std::string personal =
      "onenote:https://d.docs.live.net/7c1f0a93b2d84e65/Documents/My%20Notebook/Work/"
      "Caf%C3%A9%20%26%20%231.one"
      "#R%26D%20%23%202%20100%25" IDS "&end";
  const PageClientLink parts = {
      personal, kHost, "7c1f0a93b2d84e65", "Caf\xC3\xA9 & #1", "R&D # 2 100%", SECTION_ID, PAGE_ID, ""};
  ExpectParts(personal, parts);
  ExpectParts("https://onedrive.live.com/view.aspx?resid=1&wd=target%28a.one%7C%2F%29\r\n" + personal + " \t",
              parts);

  const std::string business =
      "onenote:https://contoso-my.sharepoint.com/personal/ada_contoso_com/Documents/Group/Inner/Plan.one"
      "#A" IDS "&object-id={" PAGE_ID "}&3E";
  ExpectParts(business, {business, "contoso-my.sharepoint.com", "ada_contoso_com", "Plan", "A", SECTION_ID,
                         PAGE_ID, "{" PAGE_ID "}&3E"});
  const std::string untitled = "onenote:https://d.docs.live.net/7c/A.one#section-id={" SECTION_ID
                               "}&page-id={" PAGE_ID "}&object-id={" PAGE_ID "}&1A2&end";
  ExpectParts(untitled, {untitled, kHost, "7c", "A", "", SECTION_ID, PAGE_ID, "{" PAGE_ID "}&1A2"});
  const std::string bare =
      "onenote:https://d.docs.live.net/7c/B.one#T&section-id=" SECTION_ID "&page-id=" PAGE_ID "&end";
  ExpectParts(bare, {bare, kHost, "7c", "B", "T", SECTION_ID, PAGE_ID, ""});
}

// Links are typed, cut short and made up: a missing part is empty and never another part.
TEST(ClientLink, HasEmptyPartsWhereSomethingIsMissing) {
  for (const char* text : {"", "https://d.docs.live.net/7c/A.one#T&end", "onenote:///x", "onenote:https://",
                           "a onenote:https:// \t\xC2\xA0", "ONENOTE:https://x"}) {
    ExpectParts(text, {});
  }
  const std::string cut = "onenote:https://d.docs.live.net/7c/A.one#T&section-id={5D&page-id=8A";
  ExpectParts(cut, {cut, kHost, "7c", "A", "T", "{5D", "", ""});
  const std::string broken = "onenote:https://h/%FF.one#%C3&page-id={}&object-id=&end";
  ExpectParts(broken, {broken, "h", "", "", "", "", "{}", ""});
  const std::string host = "onenote:https://d.docs.live.net";
  ExpectParts(host, {host, "", "", "", "", "", "", ""});
  // Only blanks go: a line break belongs to what was copied.
  EXPECT_EQ(NormalizeClientLink("x onenote:https:// \ta b\xE3\x80\x80\r\n"),
            "onenote:https://a b\xE3\x80\x80\r\n");
  EXPECT_EQ(SectionNameOfLink("https://h/n/a%2Fb//.one"), "a/b");
}

// A wrong account asks the user to sign in anew before every command.
TEST(AccountId, DependsOnTheDocumentHost) {
  const std::pair<const char*, const char*> cases[] = {{"https://d.docs.live.net/7C/n", "7C"},
                                                       {"https://d.docs.live.net//n", ""},
                                                       {"https://d.docs.live.net/7C", "7C"},
                                                       {"https://d.docs.live.net", ""},
                                                       {"https://D.docs.live.net/7C/n", "n"},
                                                       {"https://d.docs.live.net.evil.org/7C/n/x", "n"},
                                                       {"https://c.sharepoint.com/sites/T/n", "T"},
                                                       {"https://c.sharepoint.com/sites", ""},
                                                       {"https:///a/b", "b"},
                                                       {"http://d.docs.live.net/7C", ""}};
  for (const auto& [link, account] : cases) EXPECT_EQ(AccountIdFromClientUrl(link, kHost), account) << link;
  EXPECT_TRUE(HasNoUnderscore("7c1f0a93b2d84e65"));
  EXPECT_FALSE(HasNoUnderscore("ada_contoso_com") || HasNoUnderscore(""));
  EXPECT_TRUE(HasNoHyphen("") && HasNoHyphen("7c1f0a93b2d84e65"));
  EXPECT_FALSE(HasNoHyphen("48d31887-5fad"));
}

// Any name and title must come out of a link as they went in.
TEST(ClientLink, GivesBackWhatItWasBuiltFrom) {
  for (const std::string name :
       {"a/b", "#&?%41", "x.one", "\xE2\x98\x83 \xF0\x9F\x8E\xAB", "{}&page-id={x}", "\r\n", "&section-id"}) {
    const std::string link =
        "onenote:https://h/a/b/" + oracle::EscapeAll(name) + ".one#" + oracle::EscapeAll(name) + IDS "&end";
    EXPECT_EQ(SectionNameOfLink(link), name);
    EXPECT_EQ(PageTitleOfLink(link), name);
    EXPECT_EQ(RestoreAmpersands(ProtectAmpersands(link)), link);
    EXPECT_EQ(ProtectAmpersands(link).find('&'), std::string::npos);
  }
}

// A link is the clipboard's, and a clipboard holds megabytes of the same at times.
TEST(ClientLink, OfAnySizeIsReadInOneGo) {
  const auto begin = std::chrono::steady_clock::now();
  for (const char* piece :
       {"&section-id=q", "&section-id={", "/", "#", "&page-id=&", "onenote:https://", "%", " "}) {
    std::string text = "onenote:https://d.docs.live.net/";
    while (text.size() < 2'000'000) text += piece;
    const PageClientLink parts = ReadClientLink(text + "&", kHost);
    ReadClientLink(parts.link, "");
    const std::string converted = ConvertJsonClientUrl2OldClientUrl(text);
    EXPECT_EQ(ConvertJsonClientUrl2OldClientUrl(converted), converted);
  }
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
}

}  // namespace
}  // namespace quill::online
