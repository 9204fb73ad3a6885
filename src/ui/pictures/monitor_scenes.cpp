#include "ui/pictures/monitor_scenes.h"

#include "ui/pictures/scene_parts.h"
#include "ui/windows/monitor/page_chart.h"
#include "ui/windows/monitor/page_words.h"
#include "ui/windows/monitor/win_a_day_pages.h"
#include "ui/windows/monitor/win_pages_number.h"

namespace quill::ui {
namespace {

constexpr int kTolerated = 5;
const QDateTime kNow(QDate(2026, 3, 20), QTime(16, 30));

/// Somebody who writes a page or two on most days and tidies up now and then.
std::vector<online::PageHistoryEntry> SampleHistory() {
  std::string text;
  std::int64_t total = 212;
  QDateTime at(QDate(2026, 1, 5), QTime(9, 12));
  for (int i = 0; at < kNow; ++i) {
    total += i == 34 ? -31 : i == 35 ? 29 : i % 9 == 4 ? -3 : 1 + i % 3;
    text +=
        at.toString(QStringLiteral("[yyyy-MM-dd HH:mm:ss] ")).toStdString() + std::to_string(total) + "\n";
    at = at.addSecs(86'400 + (i * 7 % 5 - 2) * 5'400 + (i % 4 == 1 ? 86'400 : 0));
  }
  return online::ParsePageHistory(text, kTolerated, ClockSeconds(kNow));
}

PagesFacts SampleFacts() {
  PagesFacts facts;
  const auto history = SampleHistory();
  facts.pages.current = history.back().total;
  facts.pages.countedAt = kNow.toSecsSinceEpoch() - 720;
  facts.hasHistoryFile = true;
  facts.now = ClockSeconds(kNow);
  facts.history = std::make_shared<const std::vector<online::PageHistoryEntry>>(history);
  return facts;
}

MWinPagesNumber* OpenWith(Studio& studio, const PagesFacts& facts) {
  auto* window = new MWinPagesNumber(studio.strings, {[] {}, [] {}, [] {}});
  window->Update(facts);
  return window;
}

Look OpenPagesNumber(Studio& studio) {
  return InFront(OpenWith(studio, SampleFacts()));
}

Look OpenLostPages(Studio& studio) {
  PagesFacts facts = SampleFacts();
  auto history = *facts.history;
  while (!history.back().isDrop) history.pop_back();
  facts.pages.current = history.back().total;
  facts.now = history.back().at + std::chrono::hours(5);
  facts.history = std::make_shared<const std::vector<online::PageHistoryEntry>>(history);
  MWinPagesNumber* window = OpenWith(studio, facts);
  window->Warn({history[history.size() - 2].total, history.back().total});
  auto* chart = window->findChild<PageChart*>();
  InFront(window);
  chart->setFocus();
  return Just(window);
}

Look OpenNoHistory(Studio& studio) {
  PagesFacts facts;
  facts.isWatched = false;
  facts.history = std::make_shared<const std::vector<online::PageHistoryEntry>>();
  return InFront(OpenWith(studio, facts));
}

Look OpenDays(Studio& studio) {
  const auto today = std::chrono::floor<std::chrono::days>(ClockSeconds(kNow));
  return InFront(new MWinADayPages(studio.strings, online::PagesByDay(SampleHistory(), today, 14), today,
                                   [](std::optional<std::monostate>) {}));
}

}  // namespace

std::vector<Scene> MonitorScenes() {
  return {{QStringLiteral("pages-number"), OpenPagesNumber},
          {QStringLiteral("pages-number-lost"), OpenLostPages},
          {QStringLiteral("pages-number-empty"), OpenNoHistory},
          {QStringLiteral("pages-days"), OpenDays}};
}

}  // namespace quill::ui
