#include "online/pane_headings.h"

#include <gtest/gtest.h>

#include "online/headings.h"
#include "service_samples.h"

namespace quill::online {
namespace {

using namespace quill::samples;

// A heading that cannot be jumped to is no row; the rest of the pane has the contents' headings.
TEST(PaneHeadings, AreThoseThatHaveAnId) {
  const auto rows = ListTOCHeadingsHtml(
      Page("<h1 id=\"h1:{a1}{12}\">AT&amp;T <span>now</span></h1><h2>no id</h2><ul><h2 "
           "id=\"h2:{a2}{1}\">x</h2></ul>"
           "<table><tr><td><h4 id=\"h4:{a3}{300}\">In a cell</h4></td></tr></table><h2 id=\"\">empty</h2>"),
      kLink);
  ASSERT_TRUE(rows.ok());
  const std::string link = kParagraph;
  EXPECT_THAT(*rows, testing::ElementsAre(PaneHeading{1,
                                                      "AT\xC2\xA0"
                                                      "amp;T now",
                                                      link + "{a1}&0C"},
                                          PaneHeading{4, "In a cell", link + "{a3}&12C"},
                                          PaneHeading{2, "empty", link + "{}&00"}));
  EXPECT_FALSE(ListTOCHeadingsHtml("<h1>", kLink).ok());
  EXPECT_TRUE(ListTOCHeadingsHtml(Page(""), kLink)->empty());
}

// Links as the service returns them carry bare ids; OneNote jumps only where they have braces.
TEST(PaneHeadings, GetLinksInTheDesktopForm) {
  const auto rows =
      ListTOCHeadingsHtml("<h1 id=\"h1:{G}{12}\">x</h1>",
                          "onenote:https://h/a.one#T&section-id=5D&page-id=8A&object-id={B}&07&end");
  ASSERT_TRUE(rows.ok());
  EXPECT_EQ(rows->at(0).link, "onenote:https://h/a.one#T&section-id={5D}&page-id={8A}&object-id={G}&0C");
}

}  // namespace
}  // namespace quill::online
