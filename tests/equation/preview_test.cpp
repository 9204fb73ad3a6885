#include <gtest/gtest.h>

#include <QDir>
#include <QElapsedTimer>
#include <QImage>
#include <QSignalSpy>
#include <QTest>
#include <QWidget>
#include <algorithm>
#include <csignal>
#include <cstdio>
#include <vector>

#include "equation_world.h"
#include "formulas.h"

namespace quill::test {
namespace {

using tools::EquationForm;

// The words are MathJax's own, so that they can be looked up.
TEST(Preview, TellsWhatMathJaxSaysAgainstAFormula) {
  NEEDS_MATHJAX();
  EquationWorld& world = EquationWorld::Warm();
  for (const EquationForm form : {EquationForm::Native, EquationForm::Picture}) {
    EXPECT_EQ(world.Show(R"(\frac{1}{2)", form), "Missing close brace");
    EXPECT_EQ(world.Show(R"(\begin{matrix} a)", form), "Missing \\end{matrix}");
    EXPECT_EQ(world.Show(R"(x + \whatever)", form), "Undefined control sequence \\whatever");
    EXPECT_EQ(world.Show("x", form), "") << "the next formula has no problem";
  }
}

// A broken formula is not inserted as an equation that shows an error.
TEST(Preview, BrokenFormulaHasNeitherMathMlNorPicture) {
  NEEDS_MATHJAX();
  const Result<std::string> native = EquationWorld::Warm().Native(R"(\left( x)");
  const Result<ui::EquationPicture> picture = EquationWorld::Warm().Picture(R"(\left( x)");
  ASSERT_FALSE(native.ok());
  ASSERT_FALSE(picture.ok());
  EXPECT_NE(native.error().find("\\left"), std::string::npos) << native.error();
  EXPECT_EQ(picture.error(), native.error());
  EXPECT_EQ(EquationWorld::Warm().Native("").ValueOr("failed"), "failed");
  EXPECT_EQ(EquationWorld::Warm().Picture("").error(), "Please convert LaTex to equation at first!");
}

// While a user types, only what was typed last is of interest.
TEST(Preview, LastCallWins) {
  NEEDS_MATHJAX();
  std::string told;
  ui::EquationView& view = EquationWorld::Warm().view();
  view.Show("\\first", EquationForm::Native, [&](const QString& problem) { told += problem.toStdString(); });
  view.Show("\\second", EquationForm::Picture,
            [&](const QString& problem) { told += problem.toStdString(); });
  view.Show("\\third", EquationForm::Native, [&](const QString& problem) { told += problem.toStdString(); });
  ASSERT_TRUE(WaitUntil([&] { return !told.empty(); }));
  EXPECT_EQ(EquationWorld::Warm().Native("x").ok(), true) << "everything before it is done by now";
  EXPECT_EQ(EquationWorld::Warm().Picture("x").ok(), true);
  EXPECT_EQ(told, "Undefined control sequence \\third");
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

// The preview keeps up with typing. Ten times the usual time is allowed for.
TEST(Preview, IsQuickOnAWarmPage) {
  NEEDS_MATHJAX();
  for (const EquationForm form : {EquationForm::Native, EquationForm::Picture}) {
    EquationWorld::Warm().Show("x", form);
    std::vector<double> times;
    for (const NamedFormula& formula : IntroductoryFormulas()) {
      if (formula.name == "own_command") continue;
      QElapsedTimer timer;
      timer.start();
      ASSERT_EQ(EquationWorld::Warm().Show(std::string(formula.latex), form), "");
      times.push_back(timer.nsecsElapsed() / 1e6);
    }
    const double median = Median(times);
    std::printf("warm preview, %s: median %.1f ms, slowest %.1f ms\n",
                form == EquationForm::Native ? "native" : "picture", median,
                *std::max_element(times.begin(), times.end()));
    EXPECT_LT(median, 500);
  }
}

/// How many pixels differ from the one in the corner.
int Marks(const QImage& image) {
  int marks = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) marks += image.pixel(x, y) != image.pixel(0, 0);
  }
  return marks;
}

// The formula is seen in both forms, in the colours of the palette. QUILL_PICTURES=FOLDER keeps the pictures.
TEST(Preview, ShowsTheFormulaInTheColoursOfTheWindow) {
  NEEDS_MATHJAX();
  EquationWorld world;
  QWidget& widget = world.view().Widget();
  QPalette dark;
  dark.setColor(QPalette::Base, QColor(0x20, 0x20, 0x20));
  dark.setColor(QPalette::Text, Qt::white);
  widget.setPalette(dark);
  widget.resize(360, 120);
  widget.show();
  for (const EquationForm form : {EquationForm::Picture, EquationForm::Native}) {
    ASSERT_EQ(world.Show(std::string(R"(x=\frac{-b\pm\sqrt{b^2-4ac}}{2a})"), form), "");
    // Nine hundred and more with all letters, two hundred when only the lines are there.
    EXPECT_TRUE(WaitUntil([&] { return Marks(widget.grab().toImage()) > 500; }));
    const QImage image = widget.grab().toImage();
    EXPECT_EQ(image.pixelColor(1, 1), QColor(0x20, 0x20, 0x20));
    const QString folder = qEnvironmentVariable("QUILL_PICTURES");
    const char* name = form == EquationForm::Native ? "equation-native.png" : "equation-picture.png";
    if (!folder.isEmpty() && QDir().mkpath(folder)) image.save(folder + "/" + name);
  }
}

// A program without MathJax says so instead of showing the formula's text.
TEST(Preview, SaysThatMathJaxIsNotInstalled) {
  const shell::StringTable strings;
  EquationWorld without({.mathJax = {}, .strings = strings});
  const std::string words(strings.Text("errMathJaxMissing"));
  EXPECT_EQ(without.Show("x"), words);
  EXPECT_EQ(without.Native("x").error(), words);
  EXPECT_EQ(without.Picture("x").error(), words);
  EquationWorld gone({.mathJax = "/nonexistent/mathjax", .strings = strings});
  EXPECT_EQ(gone.Native("x").error(), "MathJax could not be loaded from /nonexistent/mathjax.");
  EXPECT_EQ(gone.Show("x", EquationForm::Picture), "MathJax could not be loaded from /nonexistent/mathjax.");
}

// Nobody waits for ever, and the next view is not harmed.
TEST(Preview, GivesUpInTimeAndSaysSo) {
  NEEDS_MATHJAX();
  const shell::StringTable strings;
  EquationWorld slow(
      {.mathJax = BuiltMathJax(), .strings = strings, .answerDeadline = std::chrono::milliseconds(0)});
  EXPECT_EQ(slow.Native("x").error(), strings.Text("errEquationSlow"));
  EXPECT_EQ(slow.Show("x", EquationForm::Picture), strings.Text("errEquationSlow"));
  EquationWorld late(
      {.mathJax = BuiltMathJax(), .strings = strings, .startDeadline = std::chrono::milliseconds(1)});
  EXPECT_EQ(late.Native("x").error(), "MathJax could not be loaded from " + BuiltMathJax().string() + ".");
}

/// The process that typesets on a page; 0 while there is none.
qint64 ProcessOf(const QObject* page) {
  return page ? page->property("renderProcessPid").toLongLong() : 0;
}

/// The page of equations, the one on top; the tests know no more of it than that it is an object.
QObject* NativePage(EquationWorld& world) {
  QObject* last = nullptr;
  for (QObject* object : world.view().Widget().findChildren<QObject*>()) {
    if (object->inherits("QWebEnginePage")) last = object;
  }
  return last;
}

// A script that never returns would hold the process, and with it every later formula.
TEST(Preview, EndsTheProcessThatWasTooSlow) {
  NEEDS_MATHJAX();
  const shell::StringTable strings;
  EquationWorld slow(
      {.mathJax = BuiltMathJax(), .strings = strings, .answerDeadline = std::chrono::milliseconds(0)});
  const QObject* page = NativePage(slow);
  const QSignalSpy loaded(page, SIGNAL(loadFinished(bool)));
  slow.view().Warm(EquationForm::Native);
  ASSERT_TRUE(WaitUntil([&] { return !loaded.isEmpty(); }));
  const qint64 first = ProcessOf(page);
  ASSERT_GT(first, 0);
  EXPECT_EQ(slow.Show("x"), strings.Text("errEquationSlow"));
  EXPECT_EQ(slow.Show("y"), strings.Text("errEquationSlow")) << "a new page works";
  EXPECT_NE(ProcessOf(page), first);
}

// A preview whose process is ended by the system, for want of memory, comes back without a key.
TEST(Preview, ComesBackWhenItsProcessIsLost) {
  NEEDS_MATHJAX();
  EquationWorld world;
  QWidget& widget = world.view().Widget();
  widget.resize(360, 120);
  widget.show();
  ASSERT_EQ(world.Show(R"(x=\frac{-b\pm\sqrt{b^2-4ac}}{2a})"), "");
  const auto isSeen = [&] { return Marks(widget.grab().toImage()) > 500; };
  ASSERT_TRUE(WaitUntil(isSeen));
  const QObject* page = NativePage(world);
  const qint64 first = ProcessOf(page);
  ASSERT_GT(first, 0);
  ASSERT_EQ(::kill(static_cast<pid_t>(first), SIGKILL), 0);
  ASSERT_TRUE(WaitUntil([&] { return ProcessOf(page) != first && ProcessOf(page) > 0; }));
  EXPECT_TRUE(WaitUntil(isSeen));
}

// A command that means itself would go on for ever; MathJax counts.
TEST(Preview, StopsAtACommandWithoutEnd) {
  NEEDS_MATHJAX();
  for (const EquationForm form : {EquationForm::Native, EquationForm::Picture}) {
    const std::string words = EquationWorld::Warm().Show(R"(\def\x{\x\x}\x)", form);
    EXPECT_NE(words.find("recursive macro call"), words.npos) << words;
    EXPECT_EQ(EquationWorld::Warm().Show("y", form), "");
  }
}

// Calls that are still open when the view ends are forgotten.
TEST(Preview, CanEndWhileItWorks) {
  NEEDS_MATHJAX();
  bool wasCalled = false;
  for (const int started : {0, 20, 400}) {
    EquationWorld world;
    world.view().Native("x", [](const auto&) {});
    WaitUntil([] { return false; }, std::chrono::milliseconds(started));
    world.view().Native("x", [&](const auto&) { wasCalled = true; });
    world.view().Picture("x", [&](const auto&) { wasCalled = true; });
  }
  EXPECT_TRUE(EquationWorld::Warm().Native("x").ok());
  EXPECT_FALSE(wasCalled);
}

}  // namespace
}  // namespace quill::test
