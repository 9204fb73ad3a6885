// The notebook's window as users and commands meet it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QImage>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>
#include <QWidget>
#include <fstream>
#include <sstream>

#include "practice/practice_world.h"

namespace quill::test {
namespace {

using platform::Flavour;
using platform::ScriptProblem;
using testing::HasSubstr;

std::string FileText(const std::filesystem::path& file) {
  std::ostringstream text;
  text << std::ifstream(file).rdbuf();
  return text.str();
}

/// The widget that takes the page's keys.
QWidget* PageWidget(PracticeWorld& world) {
  world.notebook().Open();
  EXPECT_TRUE(WaitUntil([&] { return QApplication::focusWidget() != nullptr; }))
      << "the page has the keyboard";
  return QApplication::focusWidget();
}

// What was typed last before the window is closed is what users miss most.
TEST(Notebook, SavesWhatWasTypedLast) {
  PracticeWorld world;
  const auto file = world.folder() / "First steps" / "Welcome.htm";
  ASSERT_TRUE(world.CaretToEnd());
  ASSERT_TRUE(world.RunScript("tell process \"Microsoft OneNote\"\nkeystroke \"typed\"\nend tell").ok());
  EXPECT_TRUE(WaitUntil(
      [&] { return FileText(file).find("takes a whole command back.typed") != std::string::npos; }));
  ASSERT_TRUE(world.RunScript("tell process \"Microsoft OneNote\"\nkeystroke \" last\"\nend tell").ok());
  world.notebook().Window().close();
  EXPECT_TRUE(WaitUntil([&] { return FileText(file).find("back.typed last") != std::string::npos; }));
  ASSERT_TRUE(world.RunScript(world.scripts.ScriptActivate).ok());
  ASSERT_TRUE(world.RunScript("tell process \"Microsoft OneNote\"\nkeystroke \" of all\"\nend tell").ok());
  ASSERT_TRUE(world.OpenPage("Table")) << "another page is opened before the pause that saves";
  world.Reopen();
  world.notebook().Open();
  ASSERT_TRUE(world.OpenPage("Welcome"));
  EXPECT_THAT(world.VisibleText(), HasSubstr("back.typed last of all"));
}

// Keys for a window that is gone must not be saved up for later.
TEST(Notebook, ClosedWindowTakesNoKeys) {
  PracticeWorld world;
  EXPECT_TRUE(world.notebook().Target().IsOpen());
  world.notebook().Window().close();
  EXPECT_FALSE(world.notebook().Target().IsOpen());
  const std::string before = world.PageHtml();
  ScriptProblem problem = ScriptProblem::None;
  world.OnCommandThread([&] { problem = world.notebook().Target().Press({"x", -1, {}}); });
  EXPECT_EQ(problem, ScriptProblem::TargetClosed);
  EXPECT_EQ(world.PageHtml(), before);
  EXPECT_EQ(world.RunScript(world.scripts.ScriptCommandO).problem, ScriptProblem::Unsupported);
}

// People use the same keys as scripts; they go through the engine, scripts do not.
TEST(Notebook, RealKeysCopyPasteAndUndo) {
  PracticeWorld world;
  QWidget* page = PageWidget(world);
  ASSERT_TRUE(world.SelectText("brown"));
  world.pasteboard.Clear();
  QTest::keyClick(page, Qt::Key_C, Qt::ControlModifier);
  ASSERT_TRUE(WaitUntil([&] { return world.pasteboard.Read(Flavour::Html).ok(); }));
  EXPECT_THAT(world.pasteboard.Read(Flavour::Html).ValueOr(""), HasSubstr("OneNote.File"));
  ASSERT_TRUE(world.CaretToEnd());
  const std::string before = world.PageHtml();
  QTest::keyClick(page, Qt::Key_V, Qt::ControlModifier);
  EXPECT_TRUE(WaitUntil([&] { return world.VisibleText().find("back.brown") != std::string::npos; }));
  QTest::keyClick(page, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_TRUE(WaitUntil([&] { return world.PageHtml() == before; }));
  QTest::keyClick(page, Qt::Key_X);
  EXPECT_TRUE(WaitUntil([&] { return world.VisibleText().find("back.x") != std::string::npos; }));
  QTest::keyClick(page, Qt::Key_P, Qt::ControlModifier | Qt::AltModifier);
  EXPECT_TRUE(WaitUntil([&] {
    return world.pasteboard.Read(Flavour::Text).ValueOr("").find("onenote:https://") != std::string::npos;
  }));
  QTest::keyClick(page, Qt::Key_T, Qt::ControlModifier | Qt::ShiftModifier);
  ASSERT_TRUE(WaitUntil([&] { return world.SelectionFragment() == "Welcome"; })) << "the title is selected";
  QTest::keyClick(page, Qt::Key_Y);
  EXPECT_TRUE(WaitUntil([&] { return world.PageTitle() == "y"; }));
}

// Without a mouse: from the page to the list and to another page.
TEST(Notebook, PagesAreReachedByKeyboard) {
  PracticeWorld world;
  QWidget* page = PageWidget(world);
  auto* tree = world.notebook().Window().findChild<QTreeWidget*>();
  ASSERT_TRUE(tree);
  EXPECT_FALSE(tree->accessibleName().isEmpty());
  QTest::keyClick(page, Qt::Key_F6);
  ASSERT_TRUE(WaitUntil([&] { return tree->hasFocus(); }));
  QTest::keyClick(tree, Qt::Key_Down);
  EXPECT_TRUE(WaitUntil([&] { return world.PageTitle() == "Headings"; }));
  for (const QAction* action : world.notebook().Window().actions()) {
    EXPECT_FALSE(action->text().startsWith("strPractice")) << "every text is in the table";
  }
}

// Deleting asks first, with "no" as the answer to a careless Return, and never leaves a page of a deleted
// file.
TEST(Notebook, DeletesAPageOnlyWhenToldTo) {
  PracticeWorld world;
  const auto file = world.folder() / "First steps" / "Welcome.htm";
  const auto answer = [&](QMessageBox::StandardButton button) {
    world.notebook().Window().findChild<QAction*>("strPracticeDeletePage")->trigger();
    auto* box = world.notebook().Window().findChild<QMessageBox*>();
    ASSERT_TRUE(box);
    EXPECT_EQ(box->defaultButton(), box->button(QMessageBox::No));
    box->button(button)->click();
    EXPECT_TRUE(WaitUntil([&] { return !world.notebook().Window().findChild<QMessageBox*>(); }));
  };
  answer(QMessageBox::No);
  EXPECT_TRUE(std::filesystem::exists(file));
  EXPECT_EQ(world.PageTitle(), "Welcome");
  ASSERT_TRUE(world.CaretToEnd());
  ASSERT_TRUE(world.RunScript("tell process \"Microsoft OneNote\"\nkeystroke \"late\"\nend tell").ok());
  answer(QMessageBox::Yes);
  EXPECT_TRUE(WaitUntil([&] { return world.PageTitle() == "Headings"; }));
  EXPECT_FALSE(std::filesystem::exists(file)) << "what was typed last does not bring it back";
  for (int i = 0; i < 6; ++i) answer(QMessageBox::Yes);
  EXPECT_TRUE(WaitUntil([&] { return world.PageTitle().empty(); }))
      << "after the last one there is an empty page";
}

// In dark mode the page itself must be dark, not only the frame around it.
TEST(Notebook, PageFollowsTheColourScheme) {
  PracticeWorld world;
  const QPalette light = QApplication::palette();
  /// The lightness near the right edge (the page) or the left one (the list); -1 without a picture.
  const auto lightness = [&](bool atRight) {
    const QImage picture = QImage::fromData(world.notebook().Controller().Picture());
    if (picture.isNull()) return -1;
    return picture.pixelColor(atRight ? picture.width() - 30 : 30, picture.height() * 3 / 4).lightness();
  };
  const auto dim = [&](bool atRight) { return lightness(atRight) >= 0 && lightness(atRight) < 60; };
  EXPECT_TRUE(WaitUntil([&] { return lightness(true) > 200 && lightness(false) > 200; }));
  QPalette dark(QColor(0x2b, 0x2b, 0x2b));
  dark.setColor(QPalette::Base, QColor(0x1f, 0x1f, 0x1f));
  QApplication::setPalette(dark);
  EXPECT_TRUE(WaitUntil([&] { return dim(true) && dim(false); }));
  QApplication::setPalette(light);
}

}  // namespace
}  // namespace quill::test
