#include <QCheckBox>
#include <QClipboard>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QTemporaryDir>

#include "platform/posix/posix_process_runner.h"
#include "syntax_windows.h"
#include "ui/kit/color_popover.h"
#include "ui/windows/syntax/code_excerpt.h"

namespace quill::ui {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const char kPython[] = "#!/usr/bin/env python3\nimport sys\n\ndef main():\n    print('<a> & \"b\"')\n";

// Typing starts at once, a tab is part of the code, and Control+Tab goes on as Tab does elsewhere.
TEST_F(SyntaxWindow, IsOperatedByTheKeyboard) {
  Open();
  EXPECT_TRUE(Code()->hasFocus());
  EXPECT_THAT(UnnamedControls(*window), IsEmpty());
  Press(Qt::Key_Tab);
  EXPECT_TRUE(Code()->hasFocus());
  Press(Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_THAT(TabOrder(*window), ElementsAre("Paste", "Preview", "Insert", "Cancel", "Python",
                                             "Use the language’s own rules", "Vim", "No Such Family", "13",
                                             "Line numbers", "Bold", "Frame", "Background #FFEEDD", "Code"));
  Code()->setFocus();
  Press(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_TRUE(window->findChild<ColorButton*>()->hasFocus());
}

// The ground of the code is the colour of the frame, and what is written on it can be read.
TEST_F(SyntaxWindow, TheCodeStandsOnTheFramesColor) {
  tools::HighlightRequest remembered = RememberedStyle();
  remembered.frame.color = "#102030";
  Open(remembered);
  EXPECT_EQ(Code()->palette().color(QPalette::Base), QColor(0x10, 0x20, 0x30));
  EXPECT_EQ(Code()->palette().color(QPalette::Text), QColor(Qt::white));
  auto* button = window->findChild<ColorButton*>();
  button->SetColor(QColor(0xFF, 0xFF, 0x80));
  emit button->ColorChanged(button->color());
  EXPECT_EQ(Code()->palette().color(QPalette::Base), QColor(0xFF, 0xFF, 0x80));
  EXPECT_EQ(Code()->palette().color(QPalette::Text), QColor(Qt::black));
  Type("x");
  PressOk();
  ASSERT_TRUE(WaitForClose());
  EXPECT_EQ(answer->request.frame.color, "#FFFF80");
}

// Settings that fit nothing select nothing; the user is told instead of getting another language.
TEST_F(SyntaxWindow, UnknownNamesSelectNothing) {
  tools::HighlightRequest remembered;
  remembered.language = "Klingon";
  remembered.theme = "bright";
  remembered.fontSize = "big";
  remembered.frame.color = "red";
  Open(remembered);
  Type("x");
  PressOk();
  ASSERT_TRUE(WaitForClose());
  EXPECT_EQ(answer->request.language + answer->request.theme, "");
  EXPECT_EQ(answer->request.fontSize, "big");
  EXPECT_EQ(answer->request.frame.color, "#FFFFFF");
}

// Paste replaces all of the code, exactly as it was copied, and many lines take no time to speak of.
TEST_F(SyntaxWindow, PasteReplacesTheCode) {
  Open();
  Type("old");
  std::string code = "a\r\n\tb\u00A0c\n";
  for (int i = 0; i < 20'000; ++i) code += "some line of code\r\n";
  QGuiApplication::clipboard()->setText(ToQt(code));
  QElapsedTimer time;
  time.start();
  window->findChild<QPushButton*>("paste")->click();
  ASSERT_TRUE(WaitUntil([&] { return preview.calls() > 0; }));
  EXPECT_LT(time.elapsed(), 20000);
  PressOk();
  ASSERT_TRUE(WaitForClose());
  EXPECT_EQ(answer->request.code, code);
}

// A language is offered, never taken: the user presses the button, which then goes.
TEST_F(SyntaxWindow, SuggestsTheLanguageOfTheCode) {
  tools::HighlightRequest remembered = RememberedStyle();
  remembered.language = "C#";
  Open(remembered);
  EXPECT_FALSE(Use()->isVisible());
  QGuiApplication::clipboard()->setText(QString::fromUtf8(kPython));
  window->findChild<QPushButton*>("paste")->click();
  ASSERT_TRUE(WaitUntil([&] { return Use()->isVisible(); }));
  EXPECT_EQ(FromQt(Use()->accessibleDescription()), "Looks like Python");
  EXPECT_EQ(FromQt(Box("language")->currentText()), "C#");
  EXPECT_THAT(UnnamedControls(*window), IsEmpty());
  Picture(*window, "syntax-suggestion");
  Use()->setFocus();
  Press(Qt::Key_Space);
  ASSERT_TRUE(WaitUntil([&] { return !Use()->isVisible(); }));
  EXPECT_EQ(FromQt(Box("language")->currentText()), "Python");
  EXPECT_TRUE(Box("language")->hasFocus());
  Box("language")->setCurrentText("Ruby");
  EXPECT_TRUE(Use()->isVisible());
}

// The preview waits for a pause, makes one picture at a time, and shows the last one only.
TEST_F(SyntaxWindow, ThePreviewFollowsTheLastChange) {
  Open();
  Type("a");
  Type("b");
  EXPECT_EQ(preview.calls(), 0);
  ASSERT_TRUE(WaitUntil([&] { return Shown() == "done"; }));
  EXPECT_EQ(preview.calls(), 1);
  EXPECT_EQ(preview.requests()[0].code, "ab");

  preview.Hold();
  Box("theme")->setCurrentText("Emacs");
  ASSERT_TRUE(WaitUntil([&] { return preview.isRunning(); }));
  preview.Answer(std::string("<html><body>later</body></html>"));
  window->findChildren<QCheckBox*>().back()->toggle();
  ASSERT_TRUE(WaitUntil([&] { return preview.calls() == 3; }));
  EXPECT_EQ(preview.cancelled(), 1);
  EXPECT_EQ(Shown(), "done");
  preview.Release();
  ASSERT_TRUE(WaitUntil([&] { return Shown() == "later"; }));
  EXPECT_EQ(preview.mostAtOnce(), 1);
  EXPECT_EQ(preview.requests()[2].theme, "Emacs");
}

// What cannot be shown is told in a line, and what is not shown, too.
TEST_F(SyntaxWindow, ThePreviewTellsItsProblemsQuietly) {
  Open();
  preview.Fail(tools::HighlightProblem::NoHighlighter);
  Type("a");
  ASSERT_TRUE(WaitUntil([&] { return !Note().empty(); }));
  EXPECT_EQ(Note(), world.strings.Text("errHighlightProgram"));
  EXPECT_EQ(ProblemText(), "");
  Picture(*window, "syntax-no-program");
  preview.Answer(std::string("<body>x</body>"));
  QGuiApplication::clipboard()->setText(QStringLiteral("line\n").repeated(201));
  window->findChild<QPushButton*>("paste")->click();
  ASSERT_TRUE(WaitUntil([&] { return Note() == "Only the beginning is shown."; }));
  EXPECT_EQ(preview.requests().back().code.size(), 200u * 5);
}

TEST(CodeExcerpt, CutsAtLinesAndCharacters) {
  EXPECT_FALSE(ExcerptOfCode("a\r\nb").isPart);
  std::string lines;
  for (int i = 0; i < kExcerptLines; ++i) lines += i % 2 == 0 ? "\r\n" : "\r";
  EXPECT_FALSE(ExcerptOfCode(lines).isPart);
  EXPECT_EQ(ExcerptOfCode(lines + "x").code, lines);
  std::string umlauts = "x";
  while (umlauts.size() < 2 * kExcerptBytes) umlauts += "\u00E4";
  EXPECT_EQ(ExcerptOfCode(umlauts).code.size(), kExcerptBytes - 1);
  EXPECT_TRUE(ExcerptOfCode(umlauts).isPart);
}

// The highlighter itself: the preview shows the code with its lines and blanks as they are.
TEST_F(SyntaxWindow, ShowsWhatTheHighlighterMakes) {
  const std::string program = "/usr/bin/highlight";
  if (!std::filesystem::exists(program)) GTEST_SKIP() << "highlight is not installed";
  const QTemporaryDir folder;
  const auto runner = std::make_shared<platform::PosixProcessRunner>();
  const std::string path = FromQt(folder.path());
  const shell::HighlightCode run = [runner, program, path](const auto& request, const auto& isCancelled) {
    tools::HighlightTools tools{*runner, program, path};
    tools.isCancelled = isCancelled;
    return tools::Highlight(request, tools);
  };
  for (const char* theme : {"XCode", "Darkness"}) {
    tools::HighlightRequest remembered = RememberedStyle();
    remembered.theme = theme;
    remembered.fontSize = "11";
    remembered.frame = {true, false, theme == std::string("XCode") ? "#F4F7FA" : "#202020"};
    Open({remembered, run, run});
    QGuiApplication::clipboard()->setText(QString::fromUtf8(kPython));
    window->findChild<QPushButton*>("paste")->click();
    ASSERT_TRUE(WaitUntil([&] { return Shown().find("def main") != std::string::npos; }));
    const std::string shown = FromQt(ToQt(Shown()).replace(QChar::Nbsp, u' '));
    EXPECT_THAT(shown, HasSubstr("import sys\n    3"));
    EXPECT_THAT(shown, HasSubstr("    5     print('<a> & \"b\"')\n"));
    EXPECT_EQ(Note(), "");
    Picture(*window, std::string("syntax-") + theme);
    PressOk();
    ASSERT_TRUE(WaitForClose());
    EXPECT_THAT(answer->html, HasSubstr("<table border=1 bgcolor='" + remembered.frame.color + "'>"));
    isClosed = false;
  }
}

}  // namespace
}  // namespace quill::ui
