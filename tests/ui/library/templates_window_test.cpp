#include <QLabel>

#include "base/atomic_file.h"
#include "library_world.h"
#include "ui/kit/page_preview.h"
#include "ui/windows/templates/win_templates.h"

namespace quill::ui {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class TemplatesWindow : public LibraryTest {
 protected:
  void AddThree() {
    folder.Write(
        "Template/Meeting.htm",
        "<html><head></head><body><h1>Meeting</h1><p>On &lt;&lt;Year&gt;&gt;</p>"
        "<table border=1><tr><td>Who</td><td>What</td></tr><tr><td>&nbsp;</td><td>&nbsp;</td></tr></table>"
        "<script>x</script></body></html>");
    folder.Write("Template/Weekly review.htm", "<p>Review</p><img src=\"file:///etc/hostname\"/>");
    folder.Write("Template/broken.htm", "<p>\xFF</p>");
  }
  static std::string Preview(QWidget& window) {
    return FromQt(window.findChild<PagePreview*>()->toPlainText());
  }
  static bool ShowsSoon(QWidget& window, const std::string& text) {
    return WaitUntil([&] { return Preview(window).find(text) != std::string::npos; });
  }
  bool HasFile(const char* name) { return fs::exists(folder.path() / name); }
};

// Found by a word, looked at as it would be inserted now, and inserted by Return once the window is gone.
TEST_F(TemplatesWindow, InsertsTheCurrentOne) {
  AddThree();
  auto command = Run("Template");
  auto* window = WaitForWindow<MWinTemplates>();
  ASSERT_NE(window, nullptr);
  EXPECT_THAT(Listed(*window), ElementsAre("broken", "Meeting", "Weekly review"));
  EXPECT_TRUE(ShowsSoon(*window, "broken.htm: is not UTF-8"));
  EXPECT_THAT(UnnamedControls(*window), IsEmpty());
  Press(Qt::Key_Down);
  EXPECT_TRUE(ShowsSoon(*window, "On 1970"));
  Picture(*window, "templates");
  Type("week");
  EXPECT_TRUE(ShowsSoon(*window, "Review"));
  Press(Qt::Key_Return);
  ASSERT_TRUE(command.Answer().has_value());
  EXPECT_EQ(OpenWindow<MWinTemplates>(), nullptr);
  ASSERT_EQ(desktop.recording.pastes().size(), 1u);
  EXPECT_THAT(*desktop.recording.pastes()[0].contents.html, StartsWith("<p>Review</p><img"));
}

// The key asks before a file is gone for good, the button has been aimed at.
TEST_F(TemplatesWindow, DeletesTheCurrentOne) {
  AddThree();
  auto command = Run("Template");
  auto* window = WaitForWindow<MWinTemplates>();
  ASSERT_NE(window, nullptr);
  Press(Qt::Key_Delete);
  ASSERT_TRUE(WaitUntil([&] { return QApplication::activeModalWidget() != window; }));
  Press(Qt::Key_Return);
  ASSERT_TRUE(WaitUntil([&] { return QApplication::activeModalWidget() == window; }));
  EXPECT_TRUE(HasFile("Template/broken.htm")) << "NO is the default";
  Click(*window, "delete");
  Click(*window, "delete");
  ASSERT_TRUE(WaitUntil([&] { return Listed(*window).size() == 2; }));
  EXPECT_FALSE(HasFile("Template/broken.htm"));
  ProcessEventsFor(100ms);
  EXPECT_TRUE(HasFile("Template/Meeting.htm")) << "a double click deleted two";
  EXPECT_EQ(QApplication::activeModalWidget(), window) << "a double click is no failure";
  EXPECT_EQ(Current(*window), "Meeting");
  EXPECT_TRUE(ShowsSoon(*window, "On 1970"));
}

// Without templates the window says how to get one, and its buttons do no harm.
TEST_F(TemplatesWindow, SaysWhenThereAreNone) {
  auto command = Run("Template");
  auto* window = WaitForWindow<MWinTemplates>();
  ASSERT_NE(window, nullptr);
  EXPECT_THAT(FromQt(Field(*window).accessibleDescription()), HasSubstr("no templates yet"));
  for (const char* name : {"delete", "export"})
    EXPECT_FALSE(window->findChild<QPushButton*>(QLatin1String(name))->isEnabled()) << name;
  EXPECT_TRUE(window->findChild<QPushButton*>(QStringLiteral("import"))->isEnabled());
  Press(Qt::Key_Return);
  Press(Qt::Key_Return, Qt::ControlModifier);
  Press(Qt::Key_Delete);
  EXPECT_TRUE(window->isVisible());
  Picture(*window, "templates-none");
}

// What somebody else puts into the folder is shown after the next import, the current one stays.
TEST_F(TemplatesWindow, ImportsIntoTheList) {
  AddThree();
  folder.Write("in/Another.htm", "<p>x</p>");
  auto command = Run("Template");
  auto* window = WaitForWindow<MWinTemplates>();
  ASSERT_NE(window, nullptr);
  Press(Qt::Key_End);
  Click(*window, "import");
  ASSERT_TRUE(WaitUntil([&] { return QApplication::activeModalWidget() != window; }));
  QWidget* panel = QApplication::activeModalWidget();
  EXPECT_EQ(FromQt(panel->windowTitle()), "Choose a templates folder");
  panel->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))
      ->setText(ToQt((folder.path() / "in").string()));
  Press(Qt::Key_Return);
  ASSERT_TRUE(WaitUntil([&] { return Listed(*window).size() == 4; }));
  EXPECT_EQ(Current(*window), "Weekly review");
}

// A template may hold megabytes of pictures and text: going through the list must not stutter.
TEST_F(TemplatesWindow, ShowsTheBeginningOfALongOne) {
  std::string html = "<p>Begin</p>";
  for (int i = 0; i < 40'000; ++i) html += "<p>Line " + std::to_string(i) + " <b>of many</b></p>";
  folder.Write("Template/long.htm", html + "<p>End</p>");
  folder.Write("Template/short.htm", "<p>Short</p>");
  auto command = Run("Template");
  auto* window = WaitForWindow<MWinTemplates>();
  ASSERT_NE(window, nullptr);
  EXPECT_TRUE(ShowsSoon(*window, "Begin"));
  EXPECT_EQ(Preview(*window).find("End"), std::string::npos);
  const auto notes = [&] {
    int shown = 0;
    for (QLabel* label : window->findChildren<QLabel*>())
      shown +=
          label->isVisible() && label->text() == ToQt(world.strings.Text("strTablePreviewBeginning")) ? 1 : 0;
    return shown;
  };
  EXPECT_EQ(notes(), 1);
  Picture(*window, "templates-long");
  Press(Qt::Key_Down);
  EXPECT_TRUE(ShowsSoon(*window, "Short"));
  EXPECT_EQ(notes(), 0);
}

}  // namespace
}  // namespace quill::ui
