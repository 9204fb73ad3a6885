// The notebook's window while others write into its folder.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLabel>
#include <QStatusBar>
#include <QTreeWidget>
#include <fstream>

#include "practice/page_store.h"
#include "practice/practice_world.h"

namespace quill::test {
namespace {

using practice::Page;
using practice::PageAddress;
using practice::PageStore;
using testing::HasSubstr;

const PageAddress kWelcome{"First steps", "Welcome"};

std::string StatusLine(PracticeWorld& world) {
  return world.notebook().Window().findChild<QStatusBar*>()->findChild<QLabel*>()->text().toStdString();
}

void TypeAtEnd(PracticeWorld& world, const std::string& text) {
  ASSERT_TRUE(world.CaretToEnd());
  ASSERT_TRUE(
      world.RunScript("tell process \"Microsoft OneNote\"\nkeystroke \"" + text + "\"\nend tell").ok());
}

bool SeesText(PracticeWorld& world, const std::string& text) {
  return WaitUntil([&] { return world.VisibleText().find(text) != std::string::npos; });
}

// A command that changes the page online is seen at once, and the next word is typed where the caret was.
TEST(OutsideChanges, AreShownWithoutMovingTheCaret) {
  PracticeWorld world;
  PageStore other = *PageStore::Open(world.folder(), {});
  ASSERT_TRUE(world.SelectText("brown"));
  Page page = *other.Load(kWelcome);
  page.title = "Hello";
  page.body = "<p>New first line</p>" + page.body;
  page.body.replace(page.body.find("This notebook"), 13, "That notebook");
  ASSERT_TRUE(other.Save(kWelcome, page).ok());
  ASSERT_TRUE(SeesText(world, "New first line"));
  EXPECT_THAT(world.VisibleText(), HasSubstr("That notebook"));
  EXPECT_EQ(world.PageTitle(), "Hello");
  EXPECT_THAT(world.SelectionFragment(), HasSubstr("brown"));
  EXPECT_FALSE(StatusLine(world).empty());
  auto* tree = world.notebook().Window().findChild<QTreeWidget*>();
  ASSERT_TRUE(tree->currentItem());
  EXPECT_EQ(tree->currentItem()->text(0), "Hello");
  TypeAtEnd(world, "typed");
  EXPECT_TRUE(WaitUntil([&] {
    return other.Load({"First steps", "Hello"}).ValueOr({}).body.find("back.typed") != std::string::npos;
  })) << "what is typed next goes to the renamed file";
  EXPECT_FALSE(other.Load(kWelcome).ok());
}

// A page that somebody writes in place, and pages and sections that come.
TEST(OutsideChanges, OfEveryKindAreSeen) {
  PracticeWorld world;
  PageStore other = *PageStore::Open(world.folder(), {});
  Page page = *other.Load(kWelcome);
  page.body = "<p>In place</p>";
  std::ofstream(world.folder() / "First steps" / "Welcome.htm") << practice::PageFileText(page);
  EXPECT_TRUE(SeesText(world, "In place"));
  page.body = "<p>Once more</p>";
  std::ofstream(world.folder() / "First steps" / "Welcome.htm") << practice::PageFileText(page);
  EXPECT_TRUE(SeesText(world, "Once more"));
  auto* tree = world.notebook().Window().findChild<QTreeWidget*>();
  ASSERT_TRUE(other.Create("Fresh section", "One").ok());
  const auto shows = [&](const char* title) {
    return !tree->findItems(title, Qt::MatchExactly | Qt::MatchRecursive).isEmpty();
  };
  EXPECT_TRUE(WaitUntil([&] { return shows("One"); }));
  ASSERT_TRUE(other.Create("Fresh section", "Two").ok());
  EXPECT_TRUE(WaitUntil([&] { return shows("Two"); })) << "a section that came later is watched too";
  ASSERT_TRUE(other.Delete(kWelcome).ok());
  EXPECT_TRUE(WaitUntil([&] { return world.PageTitle() == "One"; })) << "the first page there is";
}

// The last to write wins; what the user types is never replaced under the fingers.
TEST(OutsideChanges, GiveWayToWhatIsTyped) {
  PracticeWorld world;
  PageStore other = *PageStore::Open(world.folder(), {});
  Page page = *other.Load(kWelcome);
  page.body = "<p>By others</p>";
  TypeAtEnd(world, "mine");
  ASSERT_TRUE(other.Save(kWelcome, page).ok());
  EXPECT_TRUE(WaitUntil([&] { return other.Load(kWelcome)->body.find("back.mine") != std::string::npos; }));
  EXPECT_TRUE(WaitUntil([&] { return StatusLine(world).find("Your version") != std::string::npos; }))
      << StatusLine(world);
  EXPECT_THAT(world.VisibleText(), HasSubstr("back.mine"));
  EXPECT_THAT(world.VisibleText(), testing::Not(HasSubstr("By others")));
  TypeAtEnd(world, "more");
  ASSERT_TRUE(other.Delete(kWelcome).ok());
  EXPECT_TRUE(WaitUntil([&] {
    return other.Load(kWelcome).ValueOr({}).body.find("minemore") != std::string::npos;
  })) << "a page that is being written does not go away";
}

// Both sides write as fast as they can: in the end the file holds what the window shows.
TEST(OutsideChanges, EndWithOneVersionOnDiskAndOnTheScreen) {
  PracticeWorld world;
  PageStore other = *PageStore::Open(world.folder(), {});
  for (int i = 0; i < 25; ++i) {
    Page page = *other.Load(kWelcome);
    page.body = "<p>outside " + std::to_string(i) + "</p>";
    ASSERT_TRUE(other.Save(kWelcome, page).ok());
    TypeAtEnd(world, "x");
    if (i % 3 == 0) {  // sometimes long enough for the window to show it
      WaitUntil([&] { return world.VisibleText().find("outside") != std::string::npos; },
                std::chrono::milliseconds(200));
    }
  }
  EXPECT_TRUE(WaitUntil([&] { return other.Load(kWelcome)->body == world.PageHtml(); }))
      << other.Load(kWelcome)->body << "\n"
      << world.PageHtml();
  EXPECT_EQ(other.Pages().size(), 7u) << "and there is still one file for the page";
}

}  // namespace
}  // namespace quill::test
