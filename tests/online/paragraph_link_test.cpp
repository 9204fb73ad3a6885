#include "online/paragraph_link.h"

#include <gtest/gtest.h>

namespace quill::online {
namespace {

struct Case {
  std::string page, contents, pane;
};

// OneNote opens the page without going to the paragraph when a link has two object ids, or an end before one.
TEST(ParagraphLink, PointsAtTheParagraphWhateverThePageLinkHas) {
  const std::string page = "onenote:https://h/a.one#T&page-id={P}";
  // An element without an id leads to the page, as an empty object id.
  EXPECT_EQ(ParagraphLink(page + "&end", ""), page + "&object-id={}&00");
  const Case cases[] = {
      {page + "&end", page + "&object-id={G}&3E", page + "&object-id={G}&3E"},
      {page + "&object-id={A}&01", page + "&object-id={G}&3E", page + "&object-id={G}&3E"},
      {page + "&object-id={A}&01&end", page + "&object-id={G}&3E", page + "&object-id={G}&3E"},
      // Where no rule of OneNote's leads to: each form in its own way.
      {page, page + "&object-id={G}&3E", page},
      {page + "&object-id=", page + "&object-id={G}&3E", page + "&object-id="},
      {page + "&object-id=T", page + "&object-id={G}&3E",
       "onenote:https://h/a.one#{G}&3E&page-id={P}&object-id={G}&3E"},
      {"a&end&b&end", "a&b&object-id={G}&3E", "a&object-id={G}&3E&b&object-id={G}&3E"}};
  for (const Case& at : cases) {
    EXPECT_EQ(ParagraphLink(at.page, "h1:{G}{62}"), at.contents) << at.page;
    EXPECT_EQ(PaneParagraphLink(at.page, "h1:{G}{62}"), at.pane) << at.page;
  }
}

}  // namespace
}  // namespace quill::online
