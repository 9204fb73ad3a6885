#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTest>
#include <optional>

#include "equation_world.h"
#include "ui/kit/plain_style.h"
#include "ui/windows/equation/win_latex.h"

namespace quill::test {
namespace {

QPalette DarkPalette() {
  QPalette palette(QColor(45, 45, 45), QColor(32, 32, 32));
  palette.setColor(QPalette::Base, QColor(30, 30, 30));
  return palette;
}

/// QUILL_PICTURES=FOLDER keeps a picture of the window.
void Picture(QWidget& window, const QString& name) {
  const QString folder = qEnvironmentVariable("QUILL_PICTURES");
  if (folder.isEmpty() || !QDir().mkpath(folder)) return;
  WaitUntil([] { return false; }, std::chrono::milliseconds(500));  // the engine paints when it likes to
  EXPECT_TRUE(window.grab().save(folder + "/" + name + ".png"));
}

struct Dialog {
  explicit Dialog(const shell::EquationRequest& request) {
    window = new ui::MWinLaTeX(strings, EquationWorld::Warm().view(), request,
                               [this](auto given) { answer = std::move(given); });
    window->show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window));
    field = window->findChild<QPlainTextEdit*>();
  }
  ~Dialog() { delete window; }
  Dialog(const Dialog&) = delete;

  bool Previews(const char* formula) {
    return WaitUntil([&] { return Preview().accessibleName() == QLatin1String(formula); }) &&
           WaitUntil([&] { return Preview().isVisible(); });
  }
  void Insert() { QTest::keyClick(field, Qt::Key_Return, Qt::ControlModifier); }
  static QWidget& Preview() { return EquationWorld::Warm().view().Widget(); }

  shell::StringTable strings;
  QPointer<ui::MWinLaTeX> window;
  QPlainTextEdit* field = nullptr;
  std::optional<shell::EquationChoice> answer;
};

// From typing to what the page gets, with nothing made up in between.
TEST(EquationWindow, MakesOneNotesMathMlOfWhatIsTyped) {
  NEEDS_MATHJAX();
  ui::PlainStyle::UseWhereNothingIsNative();
  Dialog dialog({});
  dialog.field->selectAll();
  QTest::keyClicks(dialog.field, R"($$\frac{a}{b}$$)");
  ASSERT_TRUE(dialog.Previews(R"(\frac{a}{b})"));
  Picture(*dialog.window, "window-native");
  dialog.Insert();
  ASSERT_TRUE(WaitUntil([&] { return dialog.answer.has_value(); }));
  EXPECT_TRUE(dialog.answer->html.starts_with("<!--[if mathML]>")) << dialog.answer->html;
  EXPECT_NE(dialog.answer->html.find("mml:mfrac"), std::string::npos) << dialog.answer->html;
  EXPECT_EQ(Dialog::Preview().parentWidget(), nullptr);
}

// The same view serves the next window, whose picture is one; a fault keeps that window open.
TEST(EquationWindow, MakesAPictureInANextWindow) {
  NEEDS_MATHJAX();
  const QPalette before = QApplication::palette();
  QApplication::setPalette(DarkPalette());
  Dialog dialog({.formula = R"($$\sqrt{x$$)", .asPicture = true});
  ASSERT_TRUE(dialog.Previews(R"(\sqrt{x)"));
  dialog.Insert();
  ASSERT_TRUE(WaitUntil([&] { return !dialog.field->accessibleDescription().isEmpty(); }));
  EXPECT_EQ(dialog.field->accessibleDescription(), "Missing close brace");
  Picture(*dialog.window, "window-problem-dark");
  QTest::keyClicks(dialog.field, "}");
  ASSERT_TRUE(dialog.Previews(R"(\sqrt{x})"));
  Picture(*dialog.window, "window-picture-dark");
  dialog.Insert();
  ASSERT_TRUE(WaitUntil([&] { return dialog.answer.has_value(); }));
  EXPECT_TRUE(dialog.answer->html.starts_with("<img src=")) << dialog.answer->html.substr(0, 80);
  QApplication::setPalette(before);
}

// A page that keeps the keyboard would lock the user in.
TEST(EquationWindow, TabGoesThroughThePreview) {
  NEEDS_MATHJAX();
  for (const bool asPicture : {false, true}) {
    Dialog dialog({.formula = "$$x$$", .asPicture = asPicture});
    ASSERT_TRUE(dialog.Previews("x"));
    bool wasInPreview = false;
    const auto isBack = [&] { return wasInPreview && dialog.field->hasFocus(); };
    for (int presses = 0; presses < 20 && !isBack(); ++presses) {
      QWidget* before = QApplication::focusWidget();
      QTest::keyClick(before, Qt::Key_Tab);
      // The page may have a stop of its own before it lets the keyboard go.
      WaitUntil([&] { return QApplication::focusWidget() != before; }, std::chrono::milliseconds(500));
      wasInPreview |= Dialog::Preview().isAncestorOf(QApplication::focusWidget());
    }
    EXPECT_TRUE(dialog.field->hasFocus());
    EXPECT_TRUE(wasInPreview);
  }
}

}  // namespace
}  // namespace quill::test
