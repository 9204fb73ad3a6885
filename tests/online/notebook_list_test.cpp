#include "online/notebook_list.h"

#include <gtest/gtest.h>

#include "service_samples.h"

namespace quill::online {
namespace {

using namespace quill::samples;

// Only a notebook that is really gone may be called so: services write the same link in several ways.
TEST(NotebookList, HasTheRecentOnesThatAreGoneBehindTheOthers) {
  const std::string present = List(
      {Entry("onenote:https://h/Caf%C3%A9%20Stra%C3%9Fe", R"("displayName":"A","isDefault":false)"),
       Entry("onenote:https://h/\xCE\x9F\xCE\x94\xCE\x9F\xCE\xA3", R"("displayName":"B","isDefault":true)"),
       Entry("onenote:https://h/%FF", R"("displayName":"C","isDefault":null)")});
  const std::string recent =
      List({Entry("onenote:https://h/gone", R"("displayName":"gone")"),
            Entry("ONENOTE:https://H/CAF\xC3\x89 stra%C3%9Fe", R"("displayName":"same A")"),
            Entry("onenote:https://h/\xCE\xBF\xCE\xB4\xCE\xBF\xCF\x83", R"("displayName":"same B")"),
            Entry("onenote:https://h/%FE", R"("displayName":"other than C")"),
            Entry("onenote:https://h/gone", R"("displayName":"gone")")});
  const auto rows = Json2NotebookListView(present, recent);
  std::vector<std::string> seen;
  for (const NotebookRow& row : rows) seen.push_back(row.name + " " + std::string(NotebookIcon(row.kind)));
  EXPECT_THAT(seen,
              testing::ElementsAre("A notebook", "B notebookDefault", "C notebook", "gone notebookDeleted",
                                   "other than C notebookDeleted", "gone notebookDeleted"));
  EXPECT_EQ(rows.at(3).clientLink, "onenote:https://h/gone");
  EXPECT_EQ(rows.at(3).webLink, "https://w/22");
}

// Either request may fail; the window shows what the other one brought.
TEST(NotebookList, MakesDoWithOneList) {
  const std::string list = List({Entry("a", R"("displayName":"A")")});
  for (const char* none : {"", "{}", "x", R"({"value":{}})"}) {
    EXPECT_THAT(Json2NotebookListView(list, none),
                testing::ElementsAre(NotebookRow{"A", "a", "https://w/1", NotebookKind::Ordinary}));
    EXPECT_THAT(Json2NotebookListView(none, list),
                testing::ElementsAre(NotebookRow{"A", "a", "https://w/1", NotebookKind::Deleted}));
  }
}

}  // namespace
}  // namespace quill::online
