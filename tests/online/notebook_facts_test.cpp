#include "online/notebook_facts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "service_samples.h"

namespace quill::online {
namespace {

using namespace quill::samples;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

// The window shows all that the service knows, also what it says only of some notebooks.
TEST(NotebookFacts, NamesWhatIsNestedByTheWayToIt) {
  const nlohmann::json entry = nlohmann::json::parse(R"({"createdBy":{"user":{"displayName":"Ann \"A\""}},
      "isShared":false,"order":12,"tags":["x",{"y":1.5}],"parent":null,"empty":{},"none":[],"text":""})");
  EXPECT_THAT(NotebookFacts(entry), ElementsAre(NotebookFact{"createdBy.user.displayName", "Ann \"A\""},
                                                NotebookFact{"isShared", "false"},
                                                NotebookFact{"order", "12"}, NotebookFact{"tags.0", "x"},
                                                NotebookFact{"tags.1.y", "1.5"}, NotebookFact{"text", ""}));
  EXPECT_THAT(NotebookFacts(nullptr), IsEmpty());
}

// A body may come from anybody between the service and here: a tower of brackets must cost neither the stack
// nor the time that names of its length would take.
TEST(NotebookFacts, GivesUpOnWhatIsNestedWithoutAnEnd) {
  const std::size_t depth = 200'000;
  const std::string tower = R"({"a":1,"b":)" + std::string(depth, '[') + "7" + std::string(depth, ']') + "}";
  EXPECT_THAT(NotebookFacts(nlohmann::json::parse(tower)), ElementsAre(NotebookFact{"a", "1"}));
}

// The row that was clicked and what is told about it must be the same notebook: recent ones that still exist
// have no row, and two that are gone may have one name and one link.
TEST(NotebookFacts, BelongToTheRowOfTheList) {
  const std::string present =
      List({Entry("onenote:a", R"("displayName":"A","id":"1")"), Entry("onenote:b", R"("id":"2")")});
  const std::string recent = List({Entry("ONENOTE:A", R"("displayName":"A","seen":"again")"),
                                   Entry("onenote:x", R"("displayName":"X","seen":"first")"),
                                   Entry("onenote:x", R"("displayName":"X","seen":"second")")});
  EXPECT_THAT(NotebookFactsOfRow(present, recent, 1), Contains(NotebookFact{"id", "2"}));
  EXPECT_THAT(NotebookFactsOfRow(present, recent, 2), Contains(NotebookFact{"seen", "first"}));
  EXPECT_THAT(NotebookFactsOfRow(present, recent, 3), Contains(NotebookFact{"seen", "second"}));
  EXPECT_THAT(NotebookFactsOfRow(present, recent, 4), IsEmpty());
  EXPECT_THAT(NotebookFactsOfRow("x", "", 0), IsEmpty());
}

}  // namespace
}  // namespace quill::online
