// The ways to a page and to a paragraph.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QStatusBar>
#include <QTest>
#include <regex>

#include "online/link_conversions.h"
#include "practice/page_store.h"
#include "practice/practice_world.h"
#include "practice/service/online_ids.h"
#include "practice/service/online_page.h"
#include "practice/web_browser.h"

namespace quill::test {
namespace {

using platform::ScriptProblem;
using practice::LibraryContent;
using practice::Page;
using practice::PageStore;
using testing::HasSubstr;

/// A page with many paragraphs, a table and a list, and one link paragraph at the end that is easy to hit.
std::string LongPage(const std::string& href) {
  std::string body;
  for (int i = 0; i < 120; ++i) body += "<p>Line " + std::to_string(i) + "</p><hr>";
  body +=
      "<div><blockquote><b>loose</b></blockquote></div><table><tbody><tr><th>c1</th><td><p>c2</p></td></tr></"
      "tbody></table>";
  body +=
      "<ul><li>i1</li><ul><li>i2</li></ul></ul><div data-id=\"named\"><p>in a group</p></div><pre>code</pre>";
  return body + "<p><a href=\"" + href +
         "\" style=\"font-size:40pt;background-color:#ff00ff\">LINKLINKLINK</a></p>";
}

/// The world with one more page, "Long", open.
Page OpenLongPage(PracticeWorld& world, const std::string& href) {
  PageStore store = *PageStore::Open(world.folder(), {});
  const auto address = *store.Create("First steps", "Long");
  Page page = *store.Load(address);
  page.body = LongPage(href);
  EXPECT_TRUE(store.Save(address, page).ok());
  EXPECT_TRUE(world.OpenPage("Long"));
  return page;
}

std::string LinkTo(const Page& page, const std::string& elementId) {
  return "onenote:https://d.docs.live.net/7c1f0a93b2d84e65/Documents/Practice/"
         "First%20steps.one#Long&page-id=" +
         page.id + "&object-id=" +
         online::ConvertOnlineHtmlObjId2ClientUrlObjId(elementId.substr(elementId.find(':') + 1)) + "&end";
}

ScriptProblem Follow(PracticeWorld& world, const std::string& link) {
  ScriptProblem problem = ScriptProblem::None;
  world.OnCommandThread([&] { problem = world.notebook().Target().OpenLink(link); });
  return problem;
}

/// The ids of the elements whose text is this, outermost first.
std::vector<std::string> IdsAround(const Page& page, const std::string& text) {
  const std::string html = practice::OnlinePageHtml({page.title, page.body}, page.id, true);
  std::vector<std::string> ids;
  const std::regex element(R"re(id="((?:p|td|li|div):[^"]*)"[^>]*>)re" + ("(?:<[^>]*>)*" + text) + "<");
  for (std::sregex_iterator i(html.begin(), html.end(), element), end; i != end; ++i) ids.push_back((*i)[1]);
  return ids;
}

/// Where the magenta link is in the window; null when it is not to be seen.
QPoint PlaceOfLink(PracticeWorld& world) {
  const QImage picture = QImage::fromData(world.notebook().Controller().Picture());
  for (int y = 0; y < picture.height(); y += 3) {
    for (int x = 0; x < picture.width(); x += 3) {
      const QColor colour = picture.pixelColor(x, y);
      if (colour.red() > 240 && colour.green() < 20 && colour.blue() > 240)
        return QPoint(x + 25, y + 12) * world.notebook().Window().width() / picture.width();
    }
  }
  return {};
}

/// Brings the link into view, with nothing selected.
void ShowLink(PracticeWorld& world) {
  EXPECT_TRUE(world.SelectText("LINKLINKLINK"));
  EXPECT_TRUE(world.CaretToEnd());
}

/// Clicks on the link as a user with the control key held.
void ClickLink(PracticeWorld& world, Qt::KeyboardModifiers modifiers) {
  QPoint place;
  ASSERT_TRUE(WaitUntil([&] { return !(place = PlaceOfLink(world)).isNull(); })) << "the link is to be seen";
  QWidget* page = QApplication::focusWidget();
  ASSERT_TRUE(page);
  const QPoint local = page->mapFrom(&world.notebook().Window(), place);
  QTest::mouseMove(page, local);
  QTest::mouseClick(page, Qt::LeftButton, modifiers, local);
}

// A table of contents is of use only when its links lead to the very paragraph, wherever that is.
TEST(PageLinks, LeadToTheParagraph) {
  PracticeWorld world;
  const Page page = OpenLongPage(world, "https://example.com/");
  int typed = 0;
  for (const char* text : {"Line 7", "Line 99", "c1", "c2", "i1", "i2", "in a group", "code"}) {
    const std::vector<std::string> ids = IdsAround(page, text);
    ASSERT_FALSE(ids.empty()) << text;
    ASSERT_TRUE(world.OpenPage("Welcome"));
    ASSERT_EQ(Follow(world, LinkTo(page, ids.back())), ScriptProblem::None);
    const std::string mark = "[" + std::to_string(++typed) + "]";
    ASSERT_TRUE(
        world.RunScript("tell process \"Microsoft OneNote\"\nkeystroke \"" + mark + "\"\nend tell").ok());
    EXPECT_THAT(world.VisibleText(), HasSubstr(mark + text))
        << "the link was made before the marks were typed";
  }
  EXPECT_EQ(Follow(world, LinkTo(page, "p:{00000000-0000-0000-0000-000000000000}{1}")), ScriptProblem::None);
  Page nowhere = page;
  nowhere.id = "{00000000-0000-0000-0000-000000000000}";
  EXPECT_EQ(Follow(world, LinkTo(nowhere, "p:{}{1}")), ScriptProblem::TargetMissing);
}

// The reader must see where the link has led, and the mark must not become part of the page.
TEST(PageLinks, ShowTheParagraphAndLeaveThePageAsItIs) {
  PracticeWorld world;
  const Page page = OpenLongPage(world, "https://example.com/");
  EXPECT_TRUE(PlaceOfLink(world).isNull()) << "it is below the window's edge";
  const std::string before = world.PageHtml();
  ASSERT_EQ(Follow(world, LinkTo(page, IdsAround(page, "LINKLINKLINK").back())), ScriptProblem::None);
  EXPECT_TRUE(WaitUntil([&] { return !PlaceOfLink(world).isNull(); }));
  EXPECT_EQ(world.PageHtml(), before);
}

// With the control key a link opens; without it the click only puts the caret into the text.
TEST(PageLinks, OpenWithTheControlKey) {
  PracticeWorld world;
  WebBrowser browser;
  world.notebook().Open();
  OpenLongPage(world, "https://example.com/?a=1&amp;b=2");
  ShowLink(world);
  ASSERT_TRUE(WaitUntil([] { return QApplication::focusWidget() != nullptr; }));
  ClickLink(world, Qt::NoModifier);
  auto* line = world.notebook().Window().findChild<QStatusBar*>();
  EXPECT_TRUE(WaitUntil([&] { return line->currentMessage().contains("example.com"); }))
      << "the pointer is on it";
  EXPECT_TRUE(browser.opened.isEmpty());
  ClickLink(world, Qt::ControlModifier);
  EXPECT_TRUE(WaitUntil([&] { return browser.opened == QStringList{"https://example.com/?a=1&b=2"}; }));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return, Qt::ControlModifier);
  EXPECT_TRUE(WaitUntil([&] { return browser.opened.size() == 2; })) << "and by keyboard, from the caret";
  EXPECT_EQ(world.PageTitle(), "Long");
}

// Links between pages stay within the notebook; nothing but web pages is given to the system.
TEST(PageLinks, GoToPagesOfTheNotebookAndToNoFiles) {
  PracticeWorld world;
  WebBrowser browser;
  world.notebook().Open();
  PageStore store = *PageStore::Open(world.folder(), {});
  const Page table = *store.Load({"Material", "Table"});
  const std::pair<std::string, std::string> kLinks[] = {
      {"onenote:https://d.docs.live.net/7c/Documents/Practice/Material.one#Table&page-id=" + table.id +
           "&end",
       "Table"},
      {"onenote:https://d.docs.live.net/7c/Documents/X/"
       "Y.one#T&page-id={00000000-0000-0000-0000-000000000000}&end",
       "Long"},
      {"file:///etc/hostname", "Long"}};
  for (const auto& [href, title] : kLinks) {
    const auto address = *store.Create("First steps", "Long");
    Page page = *store.Load(address);
    page.body = LongPage(std::regex_replace(href, std::regex("&"), "&amp;"));
    ASSERT_TRUE(store.Save(address, page).ok());
    ASSERT_TRUE(world.OpenPage("Long"));
    ShowLink(world);
    auto* line = world.notebook().Window().findChild<QStatusBar*>()->findChild<QLabel*>();
    line->clear();
    ClickLink(world, Qt::ControlModifier);
    ASSERT_TRUE(WaitUntil([&] {
      return world.PageTitle() == title && (title == "Table" || !line->text().isEmpty());
    })) << href;
    ASSERT_TRUE(store.Delete(address).ok());
    ASSERT_TRUE(world.OpenPage("Welcome"));
  }
  EXPECT_TRUE(browser.opened.isEmpty());
}

}  // namespace
}  // namespace quill::test
