#include <QWebEnginePage>
#include <QWebEngineView>
#include <cstdio>
#include <fstream>

#include "online/page_edit.h"
#include "online/service_samples.h"
#include "page_world.h"

namespace quill::ui {
namespace {

/// Paragraphs, list items and cells with one match each.
std::string LongPage(int matches, const std::string& filling) {
  std::string content;
  for (int i = 0; i < matches; ++i) {
    const std::string id = std::to_string(i);
    content += "<p id=\"p:" + id + "\" style=\"margin:0\">Line <b>" + id + "</b> has a needle in " + filling +
               "</p>";
  }
  return samples::Page(content);
}

/// How long the thread that scripts and lays out pages has worked, in milliseconds: the machine may be busy
/// with other things meanwhile.
qint64 WorkedSoFar(PageWorld& page) {
  const auto* view = qobject_cast<QWebEngineView*>(&page.view().Widget());
  const std::string pid = std::to_string(view->page()->renderProcessPid());
  long long nanoseconds = 0;
  std::ifstream("/proc/" + pid + "/task/" + pid + "/schedstat") >> nanoseconds;
  return nanoseconds / 1'000'000;
}

template <class Work>
qint64 Milliseconds(PageWorld& page, Work work) {
  const qint64 before = WorkedSoFar(page);
  work();
  return WorkedSoFar(page) - before;
}

// Every letter that is typed marks everything anew: what is seen of 5,000 matches must be marked, and laid
// out, before the next letter.
TEST(FindInPageSpeed, MarksFiveThousandMatches) {
  PageWorld& page = PageWorld::Warm();
  page.Show(LongPage(5000, "hay"));
  page.Mark("line");
  int count = 0;
  const auto layOut = [&page] { return page.Script("document.body.offsetHeight").toInt(); };
  const qint64 mark = Milliseconds(page, [&] { count = page.Mark("needle").matchCount, layOut(); });
  const qint64 find = Milliseconds(page, [&] { page.Find("needle"), layOut(); });
  const qint64 replace = Milliseconds(page, [&] { page.Replace("needle", "pin"), layOut(); });
  const qint64 all = Milliseconds(page, [&] { page.ReplaceAll("needle", "pin"), layOut(); });
  std::printf("5,000 matches: marked in %lld ms, next in %lld, one replaced in %lld, all in %lld\n", mark,
              find, replace, all);
  EXPECT_EQ(count, 5000);
  EXPECT_LT(mark, 300);
  EXPECT_LT(find, 100);
  EXPECT_LT(replace, 100);
  EXPECT_LT(all, 1500);
}

// Marks are drawn where one looks, and follow when the page is scrolled; all matches are found and replaced.
TEST(FindInPageSpeed, MarksWhatIsSeenOfVeryMany) {
  PageWorld& page = PageWorld::Warm();
  const std::string html = LongPage(2000, std::string(300, 'e'));
  page.Show(html);
  const auto edit = online::ReplaceInPage(html, "e", "a", true);
  ASSERT_TRUE(edit.ok());
  EXPECT_EQ(page.Mark("e", true).matchCount, edit->matchCount);
  const auto marksInView = [&page] {
    return page
        .Script(
            "Array.from(document.querySelectorAll('quill-match')).filter((mark) => {"
            "const {top, bottom} = mark.getBoundingClientRect(); return bottom > 0 && top < innerHeight;"
            "}).length")
        .toInt();
  };
  EXPECT_GT(marksInView(), 1000);
  EXPECT_LE(page.Script("document.querySelectorAll('quill-match').length").toInt(), 5000);
  page.Script("scrollTo(0, 20000)");
  EXPECT_TRUE(WaitUntil([&] { return marksInView() > 1000; }));
  page.Find("e", true, SearchDirection::Backwards);
  EXPECT_EQ(page.Find("e", true, SearchDirection::Backwards).currentMatch, edit->matchCount);
  EXPECT_EQ(page.Script("document.querySelectorAll('.current').length").toInt(), 1);
  page.ReplaceAll("e", "a", true);
  EXPECT_EQ(page.Json(), edit->json);
}

// The engine takes two megabytes as an address; a page with much pasted text is longer.
TEST(FindInPageSpeed, ShowsAVeryLongPage) {
  PageWorld& page = PageWorld::Warm();
  const std::string html = LongPage(4000, std::string(1000, 'x') + "\xF0\x9F\x98\x80");
  ASSERT_GT(html.size(), 4'000'000u);
  int count = 0;
  const qint64 time = Milliseconds(page, [&] {
    page.Show(html);
    count = page.Mark("needle").matchCount;
  });
  std::printf("4 MB: shown and searched in %lld ms\n", time);
  EXPECT_EQ(count, 4000);
  EXPECT_LT(time, 10'000);
}

}  // namespace
}  // namespace quill::ui
