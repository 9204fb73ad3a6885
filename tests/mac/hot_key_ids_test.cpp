#include "platform/mac/mac_hot_key_ids.h"

#include <gtest/gtest.h>

#include <set>

namespace quill::platform::mac {
namespace {

// The four keys of the menu are known to Carbon by their key codes; any other combination of the same key
// must not be taken for them.
TEST(HotKeyIds, EveryCombinationHasItsOwn) {
  const struct {
    KeyCombination keys;
    std::uint32_t id;
  } usual[] = {{{true, true, true, false, "C"}, 8},
               {{true, true, true, false, "D"}, 2},
               {{true, true, true, false, "T"}, 17},
               {{true, true, true, false, "L"}, 37}};
  for (const auto& one : usual) EXPECT_EQ(CarbonHotKeyId(one.keys), one.id);
  std::set<std::uint32_t> ids;
  for (unsigned bits = 0; bits < 16; ++bits) {
    for (const char* key : {"A", "D", "F5", "Space"})
      ids.insert(CarbonHotKeyId({(bits & 1) != 0, (bits & 2) != 0, (bits & 4) != 0, (bits & 8) != 0, key}));
  }
  EXPECT_EQ(ids.size(), 16u * 4);
}

// One key with two sets of modifiers does two things; a report of neither does nothing.
TEST(HotKeyIds, TheReportedKeyIsFoundByKeyAndModifiers) {
  const HotKey keys[] = {{{true, true, true, false, "D"}, 70, "date"},
                         {{true, false, false, true, "D"}, 71, "time"}};
  EXPECT_EQ(ReportedKey(keys, 2), 70u);
  EXPECT_EQ(ReportedKey(keys, CarbonHotKeyId(keys[1].keys)), 71u);
  EXPECT_EQ(ReportedKey(keys, 8), std::nullopt);
}

// "Taken" is told in other words than a fault that only a developer can read.
TEST(HotKeyIds, CarbonsAnswersHaveMeanings) {
  EXPECT_EQ(RegistrationResult(7, 0), (HotKeyResult{7, HotKeyProblem::None}));
  EXPECT_EQ(RegistrationResult(7, -9878), (HotKeyResult{7, HotKeyProblem::Taken}));
  EXPECT_EQ(RegistrationResult(7, -9879), (HotKeyResult{7, HotKeyProblem::NoSuchKey}));
  EXPECT_EQ(RegistrationResult(7, -50), (HotKeyResult{7, HotKeyProblem::SystemError, "Carbon error -50"}));
}

}  // namespace
}  // namespace quill::platform::mac
