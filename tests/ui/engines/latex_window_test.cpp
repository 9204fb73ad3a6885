#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <memory>

#include "fake_equation_view.h"
#include "gui_world.h"
#include "ui/kit/qt_text.h"
#include "ui/windows/equation/win_latex.h"

namespace quill::ui {
namespace {

using testing::_;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using tools::EquationForm;

constexpr const char* kConvertFirst = "Please convert LaTex to equation at first!";

struct LaTeXWindow : testing::Test {
  void Open(const shell::EquationRequest& request = {}) {
    closed = false;
    window = new MWinLaTeX(world.strings, view, request, [this](auto given) {
      answer = std::move(given);
      closed = true;
    });
    window->show();
    ASSERT_NE(WaitForWindow<MWinLaTeX>(), nullptr);
    field = window->findChild<QPlainTextEdit*>();
  }
  void Insert() { Press(Qt::Key_Return, Qt::ControlModifier); }
  std::string Text() const { return FromQt(field->toPlainText()); }
  std::string Note() const { return FromQt(window->findChild<QLabel*>("note")->text()); }
  /// What a screen reader says about the field: the note, or why the window did not take it.
  std::string Said() const { return FromQt(field->accessibleDescription()); }
  bool Shows(const std::string& formula) {
    return WaitUntil([&] { return !view.shown.empty() && view.shown.back().formula == formula; });
  }
  QWidget* okButton() const {
    for (QPushButton* button : window->findChildren<QPushButton*>()) {
      if (button->text() == "Insert") return button;
    }
    return nullptr;
  }
  void Choose(const char* name) {
    for (QRadioButton* button : window->findChildren<QRadioButton*>()) {
      if (button->text().remove('&') == name) button->click();
    }
  }

  FakeEquationView view;
  MWinLaTeX* window = nullptr;
  QPlainTextEdit* field = nullptr;
  std::optional<shell::EquationChoice> answer;
  bool closed = false;
  GuiWorld world;  // the last: closes the window, which answers
};

// Whoever opens the window writes at once; quick typing does not have every letter typeset.
TEST_F(LaTeXWindow, ShowsWhatIsTypedBetweenTheDelimitersThatAreThere) {
  Open();
  EXPECT_EQ(Text(), "$$  $$");
  EXPECT_EQ(Said(), "Put the formula between $$ and $$.");
  Picture(*window, "latex-empty");
  const auto before = view.shown.size();
  Type("x+1");
  ASSERT_TRUE(Shows(" x+1 "));
  EXPECT_LT(view.shown.size() - before, 3);
  EXPECT_EQ(view.Widget().accessibleName(), "x+1");
  EXPECT_TRUE(view.Widget().isVisible());
  EXPECT_EQ(Note(), "");
}

// Everything is reached in the order in which it is read, and has a name.
TEST_F(LaTeXWindow, IsOperatedWithTheKeyboardAlone) {
  Open({.formula = "$$a$$", .recent = {"$$b$$"}});
  EXPECT_THAT(UnnamedControls(*window), IsEmpty());
  EXPECT_THAT(TabOrder(*window), ElementsAre("Formula:", "Equation", "Picture", "Fractions and roots",
                                             "Fractions and roots", "Insert", "Cancel", "Recent"));
  EXPECT_EQ(field->textCursor().position(), 3) << "the formula goes on before its closing delimiter";
  Insert();
  EXPECT_THAT(view.made, ElementsAre(testing::Field(&FakeEquationView::Asked::formula, "a")));
  Press(Qt::Key_Escape);
  EXPECT_TRUE(closed);
}

// A formula that lacks its delimiters shows nothing, is not inserted, and gets them by a button.
TEST_F(LaTeXWindow, OffersDelimitersForAFormulaWithoutThem) {
  Open({.formula = R"(\frac{a}{b})"});
  EXPECT_EQ(view.shown.back().formula, "");
  EXPECT_EQ(Note(), "Put the formula between $$ and $$.");
  Picture(*window, "latex-hint");
  Insert();
  EXPECT_EQ(Said(), kConvertFirst);
  EXPECT_THAT(view.made, IsEmpty());
  QTest::keyClick(window, Qt::Key_P, Qt::AltModifier);
  ASSERT_TRUE(Shows(R"( \frac{a}{b} )"));
  EXPECT_EQ(Text(), R"($$ \frac{a}{b} $$)");
  EXPECT_TRUE(field->hasFocus());
}

// While letters are typed, an answer to an older text would accuse the newer one.
TEST_F(LaTeXWindow, TellsMathJaxsWordsAboutTheLastFormulaOnly) {
  Open({.formula = "$$a$$"});
  view.answersShows = false;
  view.problem = "Missing close brace";
  Type("{");
  ASSERT_TRUE(Shows("a{"));
  Type("b");
  view.AnswerShow("Missing close brace");
  EXPECT_EQ(Note(), "");
  ASSERT_TRUE(Shows("a{b"));
  view.AnswerShow("Extra open brace");
  EXPECT_EQ(Note(), "Extra open brace");
  EXPECT_EQ(Said(), "Extra open brace");
  Picture(*window, "latex-problem");
  Type("}");
  ASSERT_TRUE(Shows("a{b}"));
  EXPECT_EQ(Note(), "Extra open brace") << "it does not flicker";
  view.AnswerShow("");
  EXPECT_EQ(Note(), "");
}

// The equation goes as MathML for OneNote, with the text for the recent formulas.
TEST_F(LaTeXWindow, InsertsAnEquation) {
  Open({.formula = "$$a$$ "});
  Insert();
  EXPECT_FALSE(okButton()->isEnabled()) << "a second press would ask twice";
  EXPECT_FALSE(closed);
  view.native(std::string("<math xmlns=\"m\">\n <mi>a</mi>\n</math>"));
  ASSERT_TRUE(answer.has_value());
  EXPECT_EQ(answer->html,
            "<!--[if mathML]><mml:math xmlns:mml=\"m\"><mml:mi>a</mml:mi></mml:math><![endif]-->");
  EXPECT_EQ(answer->formula, "$$a$$");
  EXPECT_FALSE(answer->asPicture);
}

// The other output is a choice of the same window, and shown as such at once.
TEST_F(LaTeXWindow, InsertsAPicture) {
  Open({.formula = "$$a$$"});
  Choose("Picture");
  EXPECT_EQ(view.shown.back().formula, "a");
  EXPECT_EQ(view.shown.back().form, EquationForm::Picture);
  Insert();
  ASSERT_EQ(view.made.back().form, EquationForm::Picture);
  view.picture(EquationPicture{"data:image/png;base64,AAAA", {30, 20}});
  ASSERT_TRUE(answer.has_value());
  EXPECT_EQ(answer->html, *tools::PictureHtml("data:image/png;base64,AAAA", {30, 20}));
  EXPECT_TRUE(answer->asPicture);
}

// Nothing is inserted without a result; the window stays, says why, and tries again.
TEST_F(LaTeXWindow, StaysOpenWithoutAResult) {
  Open({.formula = "$$a$$"});
  Insert();
  view.native(std::string());
  EXPECT_EQ(Said(), kConvertFirst);
  Insert();
  view.native(Failure{std::string("Missing close brace")});
  EXPECT_EQ(Said(), "Missing close brace");
  EXPECT_EQ(Note(), "") << "it is said once";
  Picture(*window, "latex-refused");
  Choose("Picture");
  EXPECT_EQ(Said(), "") << "what was said of the equation";
  Insert();
  view.picture(EquationPicture{"data:image/svg+xml;base64,AAAA", {}});
  EXPECT_EQ(Said(), "Create LaTeX error!");
  Insert();
  view.picture(Failure{std::string(kConvertFirst)});
  EXPECT_EQ(Said(), kConvertFirst);
  EXPECT_FALSE(closed);
  field->clear();
  Insert();
  EXPECT_EQ(Said(), kConvertFirst);
  EXPECT_EQ(view.made.size(), 4);
}

// What was changed after Insert was pressed is not inserted in its older form.
TEST_F(LaTeXWindow, ChangeWhileWaitingTakesTheInsertionBack) {
  Open({.formula = "$$a$$"});
  Insert();
  const auto late = view.native;
  Type("b");
  EXPECT_TRUE(okButton()->isEnabled());
  late(std::string("<math/>"));
  EXPECT_FALSE(closed);
  Insert();
  Choose("Picture");
  view.native(std::string("<math/>"));
  EXPECT_FALSE(closed);
}

// An equation that takes its time is not mistaken for a window that hangs; Escape still ends it, and what
// the view answers then finds nobody.
TEST_F(LaTeXWindow, CanBeClosedWhileItWaits) {
  Open({.formula = "$$a$$"});
  view.answersShows = false;
  Type("b");
  ASSERT_TRUE(Shows("ab"));
  Insert();
  ASSERT_TRUE(WaitUntil([&] { return Note() == "The equation is being made…"; }));
  Picture(*window, "latex-waiting");
  const QPointer<QWidget> gone = window;
  Press(Qt::Key_Escape);
  EXPECT_TRUE(closed);
  view.native(std::string("<math/>"));
  EXPECT_FALSE(answer.has_value());
  ASSERT_TRUE(WaitUntil([&] { return gone.isNull(); }));
  view.AnswerShow("late");
  view.native(std::string("<math/>"));
}

// The view is shared: a window that is on its way out does not take its widget from the next one.
TEST_F(LaTeXWindow, GivesTheWidgetBack) {
  Open({.formula = "$$a$$"});
  const QPointer<QWidget> first = window;
  EXPECT_TRUE(window->isAncestorOf(&view.Widget()));
  window->reject();
  EXPECT_EQ(view.Widget().parentWidget(), nullptr);
  EXPECT_EQ(view.Widget().accessibleName(), "");
  Open({.formula = "$$b$$"});
  ASSERT_TRUE(WaitUntil([&] { return first.isNull(); }));
  EXPECT_TRUE(window->isAncestorOf(&view.Widget()));
  delete window;
  EXPECT_EQ(view.Widget().parentWidget(), nullptr);
}

// Without MathJax the reader learns it where the formula would be, and again on Insert. It may come back.
TEST_F(LaTeXWindow, SaysWhyThereIsNoPreview) {
  view.brokenness = view.problem = "MathJax is not installed.";
  Open({.formula = "$$a$$"});
  const auto saysWhy = [&] {
    for (const QLabel* label : window->findChildren<QLabel*>()) {
      if (label->isVisible() && label->text() == view.brokenness) return true;
    }
    return false;
  };
  EXPECT_TRUE(saysWhy());
  EXPECT_FALSE(view.Widget().isVisible());
  EXPECT_EQ(Note(), "");
  Picture(*window, "latex-missing");
  Insert();
  view.native(Failure{FromQt(view.brokenness)});
  EXPECT_EQ(Said(), "MathJax is not installed.");
  view.brokenness.clear();
  view.problem.clear();
  Type("b");
  ASSERT_TRUE(Shows("ab"));
  EXPECT_TRUE(view.Widget().isVisible());
}

// A form that takes its time, or that does not work at all, does not cover the other one, which works.
TEST_F(LaTeXWindow, GoesBackToAFormThatWorks) {
  Open({.formula = "$$a$$"});
  const auto seen = [this] { return view.Widget().isVisible(); };
  view.answersShows = false;
  Choose("Picture");
  ASSERT_TRUE(WaitUntil([&] { return !seen(); })) << "it is still loading";
  Choose("Equation");
  EXPECT_TRUE(seen());
  EXPECT_EQ(view.Widget().parentWidget()->accessibleDescription(), "");
  Choose("Picture");
  Choose("Equation");
  EXPECT_FALSE(WaitUntil([&] { return !seen(); }, 600ms))
      << "the words come late for a form that nobody sees";
  view.answersShows = true;
  view.brokenness = "MathJax could not be loaded.";
  Choose("Picture");
  EXPECT_FALSE(seen());
  Choose("Equation");
  EXPECT_TRUE(seen());
}

// A view that has to start first does not lose what is typed meanwhile, nor asks for it twice.
TEST_F(LaTeXWindow, WaitsForAViewThatStarts) {
  view.answersShows = false;
  Open();
  Type("x");
  ASSERT_TRUE(WaitUntil([&] { return view.Widget().accessibleName() == "x"; }));
  EXPECT_EQ(view.shown.size(), 1);
  view.AnswerShow("");
  EXPECT_EQ(view.shown.size(), 2);
  EXPECT_EQ(view.shown.back().formula, " x ");
}

// The palette writes around what is selected; Tab then goes from gap to gap, and out behind the last.
TEST_F(LaTeXWindow, PaletteInsertsAtTheCaret) {
  Open({.formula = "$$x+1$$"});
  field->moveCursor(QTextCursor::Start);
  Press(Qt::Key_Right);
  Press(Qt::Key_Right);
  for (int i = 0; i < 3; ++i) Press(Qt::Key_Right, Qt::ShiftModifier);
  auto* grid = window->findChild<QListWidget*>();
  grid->setFocus();
  Press(Qt::Key_Return);
  EXPECT_EQ(Text(), R"($$\frac{x+1}{□}$$)");
  EXPECT_TRUE(field->hasFocus());
  EXPECT_EQ(field->textCursor().selectedText(), "□");
  ASSERT_TRUE(Shows(R"(\frac{x+1}{□})"));
  EXPECT_EQ(Note(), "Tab goes to the next □.");
  Picture(*window, "latex-palette");
  grid->setFocus();
  Press(Qt::Key_Space);
  EXPECT_EQ(Text(), R"($$\frac{x+1}{\frac{□}{□}}$$)") << "a gap is filled, not copied";
  Type("a");
  Press(Qt::Key_Tab);
  Type("b");
  EXPECT_EQ(Text(), R"($$\frac{x+1}{\frac{a}{b}}$$)");
  Press(Qt::Key_Tab);
  EXPECT_FALSE(field->hasFocus());
  for (int i = 0; i < 4; ++i) field->undo();
  EXPECT_EQ(Text(), "$$x+1$$");
}

// Another group is chosen with the keyboard, its buttons with the arrow keys and with the mouse; in an empty
// field the delimiters come along.
TEST_F(LaTeXWindow, PaletteHasGroups) {
  Open();
  field->clear();
  auto* groups = window->findChild<QComboBox*>();
  groups->setFocus();
  for (int i = 0; i < 5; ++i) Press(Qt::Key_Down);
  auto* grid = window->findChild<QListWidget*>();
  EXPECT_EQ(grid->accessibleName(), "Greek letters");
  EXPECT_EQ(grid->item(0)->data(Qt::AccessibleTextRole), R"(\alpha)");
  grid->setFocus();
  Press(Qt::Key_Right);
  Picture(*window, "latex-greek");
  Press(Qt::Key_Return);
  EXPECT_EQ(Text(), R"($$ \beta  $$)");
  QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, grid->visualItemRect(grid->item(2)).center());
  EXPECT_EQ(Text(), R"($$ \beta \gamma  $$)");
}

// A recent formula replaces what is there, and can be undone.
TEST_F(LaTeXWindow, RecentFormulaReplacesTheText) {
  Open({.formula = "$$a$$", .recent = {"$$E=mc^2$$", "$$a & b$$"}});
  auto* menu = window->findChild<QMenu*>();
  ASSERT_EQ(menu->actions().size(), 2);
  EXPECT_TRUE(menu->actions()[1]->text().contains("a && b"));
  QTest::keyClick(window, Qt::Key_R, Qt::AltModifier);
  ASSERT_TRUE(WaitUntil([&] { return menu->isVisible(); }));
  Picture(*menu, "latex-recent");
  QTest::keyClick(menu, Qt::Key_Down);
  QTest::keyClick(menu, Qt::Key_Return);
  ASSERT_TRUE(Shows("E=mc^2"));
  EXPECT_EQ(Text(), "$$E=mc^2$$");
  EXPECT_EQ(window->focusWidget(), field);
  field->undo();
  EXPECT_EQ(Text(), "$$a$$");
}

}  // namespace
}  // namespace quill::ui
