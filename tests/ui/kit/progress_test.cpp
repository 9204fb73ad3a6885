#include "ui/kit/progress_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <atomic>

#include "gui_world.h"
#include "ui/kit/elided_label.h"
#include "ui/kit/qt_text.h"
#include "ui/kit/tool_window.h"

namespace quill::ui {
namespace {

using Clock = std::chrono::steady_clock;

bool NoWindow() {
  return OpenWindow<ToolWindow>() == nullptr;
}

ToolWindow* WaitForProgress() {
  WaitUntil([] { return !NoWindow(); });
  auto* window = OpenWindow<ToolWindow>();
  if (window != nullptr) window->activateWindow();
  return window;
}

// A job of a moment must not flash a window; one that takes longer shows itself half a second after its
// start.
TEST(Progress, IsVisibleAfterHalfASecondAndGoesWithItsJob) {
  GuiWorld world;
  { const auto quick = world.ui.BeginProgress("Counting pages"); }
  auto slow = world.ui.BeginProgress("Exporting the notebook");
  const auto begun = Clock::now();
  ASSERT_NE(WaitForProgress(), nullptr);
  EXPECT_GE(Clock::now() - begun, 450ms);
  EXPECT_LE(Clock::now() - begun, 2s);
  EXPECT_EQ(FromQt(OpenWindow<ToolWindow>()->windowTitle()), "Exporting the notebook");
  slow.reset();
  EXPECT_TRUE(WaitUntil(NoWindow, 1s));
}

// The window says how far the job is and on what, in a line that no path makes wider.
TEST(Progress, ShowsFractionAndDetail) {
  GuiWorld world;
  const auto job = world.ui.BeginProgress("Exporting the notebook");
  auto* window = WaitForProgress();
  ASSERT_NE(window, nullptr);
  auto* bar = window->findChild<QProgressBar*>();
  auto* detail = window->findChild<ElidedLabel*>();
  EXPECT_EQ(bar->maximum(), 0) << "nothing is known yet";
  const int width = window->width();
  const std::string path = "/Users/somebody/Documents/" + std::string(300, 'x') + "/last page.html";
  job->Set(0.25, path);
  EXPECT_TRUE(WaitUntil([&] { return bar->maximum() == 1000 && bar->value() == 250; }));
  EXPECT_TRUE(detail->text().startsWith("/Users")) << FromQt(detail->text());
  EXPECT_TRUE(detail->text().endsWith("page.html")) << FromQt(detail->text());
  EXPECT_EQ(FromQt(detail->accessibleName()), path);
  EXPECT_EQ(window->width(), width);
  Picture(*window, "progress");
  job->Set(7, "more than all");
  EXPECT_TRUE(WaitUntil([&] { return bar->value() == 1000; }));
  job->Set(std::nan(""), "not a number");
  EXPECT_TRUE(WaitUntil([&] { return bar->maximum() == 0; }));
  EXPECT_THAT(UnnamedControls(*window), testing::IsEmpty());
}

// Whoever cancels sees that it was heard, and the job hears it once it looks.
TEST(Progress, CancelIsHeardAndSaidToBeUnderWay) {
  for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Space}) {
    GuiWorld world;
    std::atomic<bool> goOn = false;
    auto work = world.OnCommandThread([&] {
      const auto job = world.ui.BeginProgress("Exporting the notebook");
      while (!job->Cancelled()) job->Set(0.5, "page");
      while (!goOn) std::this_thread::yield();
      return true;
    });
    auto* window = WaitForProgress();
    ASSERT_NE(window, nullptr);
    ASSERT_TRUE(WaitUntil([&] { return window->isActiveWindow(); }));
    Press(key);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(FromQt(window->findChild<ElidedLabel*>()->text()), "Stopping…");
    EXPECT_FALSE(window->findChild<QPushButton*>()->isEnabled());
    Picture(*window, "progress-stopping");
    goOn = true;
    EXPECT_TRUE(work.Answer().has_value());
    EXPECT_TRUE(WaitUntil(NoWindow));
  }
}

// Closing the window is Cancel, too; a window that refused would keep the program from ending.
TEST(Progress, ClosingItsWindowCancels) {
  GuiWorld world;
  const auto job = world.ui.BeginProgress("Exporting the notebook");
  auto* window = WaitForProgress();
  ASSERT_NE(window, nullptr);
  EXPECT_TRUE(window->close());
  EXPECT_TRUE(job->Cancelled());
}

// A job that looks only at Cancelled ends with the program, whether its window is up or not.
TEST(Progress, TheEndOfTheProgramCancelsEveryJob) {
  auto world = std::make_unique<GuiWorld>();
  const auto early = world->ui.BeginProgress("Exporting the notebook");
  ASSERT_NE(WaitForProgress(), nullptr);
  const auto young = world->ui.BeginProgress("Counting pages");
  EXPECT_FALSE(young->Cancelled());
  world->ui.Close();
  EXPECT_TRUE(early->Cancelled());
  EXPECT_TRUE(young->Cancelled());
  EXPECT_TRUE(world->ui.BeginProgress("too late")->Cancelled());
  EXPECT_TRUE(NoWindow());
  world.reset();
  early->Set(1, "the screen is gone");
  EXPECT_TRUE(early->Cancelled());
}

// A job tells every byte it copies: telling is cheap, and the screen looks twenty times a second at most.
TEST(Progress, SetIsCheapAndTheScreenKeepsItsPace) {
  GuiWorld world;
  auto work = world.OnCommandThread([&] {
    const auto job = world.ui.BeginProgress("Exporting the notebook");
    long told = 0;
    for (const auto end = Clock::now() + 1500ms; Clock::now() < end; ++told) {
      job->Set(static_cast<double>(told % 1000) / 1000, "page " + std::to_string(told));
    }
    return told;
  });
  auto* window = WaitForProgress();
  ASSERT_NE(window, nullptr);
  int changes = 0;
  QObject::connect(window->findChild<QProgressBar*>(), &QProgressBar::valueChanged, [&] { ++changes; });
  const auto watched = Clock::now();
  const long told = work.Answer().value_or(0);
  const double seconds = std::chrono::duration<double>(Clock::now() - watched).count();
  EXPECT_GT(told, 100'000);
  EXPECT_GT(changes, 2);
  EXPECT_LE(changes, seconds * 20 + 3);
}

// A job may end at any moment: before its window is due, just when it appears, while it is drawn or
// cancelled.
TEST(Progress, MayBeDroppedAtAnyMoment) {
  GuiWorld world;
  auto work = world.OnCommandThread([&] {
    std::vector<std::unique_ptr<platform::Progress>> jobs;
    const auto start = Clock::now();
    for (int i = 0; i < 60; ++i) jobs.push_back(world.ui.BeginProgress("Job"));
    for (int i = 0; i < 60; ++i) {
      while (Clock::now() < start + 440ms + i * 3ms) std::this_thread::yield();
      jobs[static_cast<std::size_t>(i)]->Set(0.1, "x");
      jobs[static_cast<std::size_t>(i)].reset();
    }
    return true;
  });
  while (!work.Answered()) {
    if (auto* window = OpenWindow<ToolWindow>()) window->reject();
    ProcessEventsFor(1ms);
  }
  EXPECT_TRUE(WaitUntil(NoWindow, 2s));
}

}  // namespace
}  // namespace quill::ui
