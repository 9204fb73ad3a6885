#include <QProgressBar>

#include "syntax_windows.h"

namespace quill::ui {
namespace {

using testing::EndsWith;
using testing::StartsWith;
using tools::HighlightProblem;

// What is inserted comes from the fields as they were remembered, and goes back to be remembered again.
TEST_F(SyntaxWindow, AnswersWithTheFieldsAndTheDocument) {
  Open();
  Type("a\tb");
  PressOk();
  ASSERT_TRUE(WaitForClose());
  ASSERT_TRUE(answer.has_value());
  EXPECT_EQ(answer->html, "<html><body><pre>done</pre></body></html>");
  const tools::HighlightRequest& request = answer->request;
  EXPECT_EQ(request.code, "a\tb");
  EXPECT_EQ(request.language + "/" + request.theme + "/" + request.font + "/" + request.fontSize,
            "Python/Vim/No Such Family/13");
  EXPECT_TRUE(request.hasLineNumbers && request.frame.isFramed && request.frame.isBold);
  EXPECT_EQ(request.frame.color, "#FFEEDD");
  EXPECT_EQ(request.source, tools::SyntaxSource::Extension);
  ASSERT_EQ(highlight.calls(), 1);
  EXPECT_EQ(highlight.requests()[0].code, "a\tb");
}

// With nothing to colour, Insert does nothing at all; the window is still given up as any other.
TEST_F(SyntaxWindow, EmptyCodeDoesNothing) {
  Open();
  PressOk();
  ProcessEventsFor(50ms);
  EXPECT_EQ(ProblemText(), "");
  EXPECT_EQ(highlight.calls(), 0);
  Press(Qt::Key_Escape);
  ASSERT_TRUE(WaitForClose());
  EXPECT_FALSE(answer.has_value());
}

// Each reason is told where it can be put right, and giving up then keeps the fields of the failed run.
TEST_F(SyntaxWindow, AFailureIsToldUnderItsField) {
  Open();
  Type("x");
  const std::pair<HighlightProblem, const QWidget*> cases[] = {
      {HighlightProblem::UnknownLanguage, Box("language")},
      {HighlightProblem::UnknownTheme, Box("theme")},
      {HighlightProblem::BadFontSize, Box("size")},
      {HighlightProblem::NoHighlighter, Code()},
      {HighlightProblem::NotWritten, Code()},
      {HighlightProblem::NoResult, Code()},
      {HighlightProblem::TooLarge, Code()},
      {HighlightProblem::TimedOut, Code()}};
  int calls = 0;
  for (const auto& [problem, field] : cases) {
    highlight.Fail(problem);
    PressOk();
    ++calls;
    ASSERT_TRUE(WaitUntil([&] { return highlight.calls() == calls && Code()->isEnabled(); }));
    ASSERT_TRUE(WaitForProblem());
    EXPECT_THAT(ProblemText(), StartsWith("Highlight the source code error! "));
    EXPECT_THAT(ProblemText(), EndsWith(world.strings.Text(tools::HighlightProblemKey(problem))));
    EXPECT_EQ(FromQt(field->accessibleDescription()), ProblemText());
    EXPECT_TRUE(field->hasFocus() || field->isAncestorOf(window->focusWidget()));
    if (problem == HighlightProblem::BadFontSize) Picture(*window, "syntax-problem");
  }
  Box("theme")->setCurrentText("Emacs");  // after the last run
  Press(Qt::Key_Escape);
  ASSERT_TRUE(WaitForClose());
  ASSERT_TRUE(answer.has_value());
  EXPECT_EQ(answer->html, "");
  EXPECT_EQ(answer->request.code + answer->request.theme, "xVim");
}

// A run that has no words for its end just ends: nothing is told, and giving up is nothing but that.
TEST_F(SyntaxWindow, SilentProblemsAreSilent) {
  Open();
  Type("x");
  for (const HighlightProblem problem : {HighlightProblem::NoCode, HighlightProblem::Cancelled}) {
    highlight.Fail(problem);
    PressOk();
    ASSERT_TRUE(WaitUntil([&] { return Code()->isEnabled(); }));
    EXPECT_EQ(ProblemText(), "");
  }
  Press(Qt::Key_Escape);
  ASSERT_TRUE(WaitForClose());
  EXPECT_FALSE(answer.has_value());
}

// A run that takes long is seen after half a second; Escape ends it and gives the window back as it was.
TEST_F(SyntaxWindow, EscapeEndsTheRunAndNotTheWindow) {
  Open();
  Type("x");
  highlight.Hold();
  PressOk();
  ASSERT_TRUE(WaitUntil([&] { return highlight.isRunning(); }));
  const auto* bar = window->findChild<QProgressBar*>();
  EXPECT_FALSE(bar->isVisible());
  EXPECT_FALSE(Code()->isEnabled());
  ASSERT_TRUE(WaitUntil([&] { return bar->isVisible(); }));
  EXPECT_EQ(bar->maximum(), 0);
  Picture(*window, "syntax-busy");
  PressOk();
  Press(Qt::Key_Return);
  Press(Qt::Key_Escape);
  EXPECT_FALSE(bar->isVisible());
  EXPECT_TRUE(Code()->hasFocus());
  ASSERT_TRUE(WaitUntil([&] { return !highlight.isRunning(); }));
  ProcessEventsFor(20ms);
  EXPECT_FALSE(isClosed);
  EXPECT_EQ(highlight.calls(), 1);
  EXPECT_EQ(highlight.cancelled(), 1);

  Type("y");  // what was ended has left nothing behind
  highlight.Release();
  PressOk();
  ASSERT_TRUE(WaitForClose());
  EXPECT_EQ(answer->request.code, "xy");
}

// The Cancel button does as Escape does.
TEST_F(SyntaxWindow, CancelEndsTheRun) {
  Open();
  Type("x");
  highlight.Hold();
  PressOk();
  ASSERT_TRUE(WaitUntil([&] { return highlight.isRunning(); }));
  Press(Qt::Key_Tab);
  EXPECT_EQ(Focused(), "Cancel");
  Press(Qt::Key_Space);
  ASSERT_TRUE(WaitUntil([&] { return highlight.cancelled() == 1; }));
  EXPECT_FALSE(isClosed);
  EXPECT_TRUE(Code()->isEnabled());
}

// The window's close button, and the end of the program, do not wait for a run.
TEST_F(SyntaxWindow, ClosesAndDiesWhileItRuns) {
  Open();
  Type("x");
  highlight.Hold();
  preview.Hold();
  ASSERT_TRUE(WaitUntil([&] { return preview.isRunning(); }));
  PressOk();
  ASSERT_TRUE(WaitUntil([&] { return highlight.isRunning(); }));
  window->close();
  EXPECT_TRUE(isClosed);
  EXPECT_FALSE(answer.has_value());
  ASSERT_TRUE(WaitUntil([&] { return window.isNull() && !highlight.isRunning() && !preview.isRunning(); }));

  isClosed = false;
  Open();
  Type("x");
  PressOk();
  ASSERT_TRUE(WaitUntil([&] { return highlight.isRunning(); }));
  delete window;
  EXPECT_TRUE(isClosed);
  EXPECT_TRUE(WaitUntil([&] { return !highlight.isRunning(); }));
  ProcessEventsFor(20ms);
}

}  // namespace
}  // namespace quill::ui
