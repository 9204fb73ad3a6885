#include "platform/mac/mac_script_errors.h"

#include <gtest/gtest.h>

namespace quill::platform::mac {
namespace {

// The message that the user gets, and whether the copy is tried again, hang on these numbers.
TEST(MacScriptErrors, NumbersBecomeTheProblemThatTheUserCanActOn) {
  struct Case {
    long number;
    ScriptProblem problem;
  };
  const Case cases[] = {
      {0, ScriptProblem::None},
      {-1743, ScriptProblem::NotPermitted},  // Automation refused
      {-1744, ScriptProblem::NotPermitted},  // consent still to be asked for
      {1002, ScriptProblem::NotPermitted},   // keystrokes refused
      {-1719, ScriptProblem::NotPermitted},
      {-25211, ScriptProblem::NotPermitted},
      {-600, ScriptProblem::TargetMissing},
      {-609, ScriptProblem::TargetMissing},
      {-10814, ScriptProblem::TargetMissing},
      {-1728, ScriptProblem::TargetMissing},
      {-128, ScriptProblem::TargetMissing},
      {-1712, ScriptProblem::NoAnswer},
      {-2740, ScriptProblem::BadScript},
      {-2741, ScriptProblem::BadScript},
      {-2763, ScriptProblem::BadScript},
      {-2764, ScriptProblem::NoAnswer},  // beyond the range, so unknown
      {-1708, ScriptProblem::BadScript},
      {1001, ScriptProblem::NoAnswer},
      {-99999, ScriptProblem::NoAnswer},
  };
  for (const Case& c : cases) EXPECT_EQ(ProblemOfScriptError(c.number), c.problem) << c.number;
}

// The detail goes to the log of a user's report: number and origin must survive missing parts.
TEST(MacScriptErrors, DetailNamesNumberOriginAndWords) {
  EXPECT_EQ(ScriptFailure(-1743, "System Events", "Not authorised").detail,
            "AppleScript error -1743 from System Events: Not authorised");
  EXPECT_EQ(ScriptFailure(-600, "", "").detail, "AppleScript error -600");
  EXPECT_EQ(ScriptFailure(-600, "", "gone").problem, ScriptProblem::TargetMissing);
}

}  // namespace
}  // namespace quill::platform::mac
