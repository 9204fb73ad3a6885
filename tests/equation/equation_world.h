#pragma once
#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "shell/string_table.h"
#include "ui/equation_view.h"

namespace quill::test {

/// Runs the GUI thread's events until `met` is true; false when that takes longer than the deadline.
bool WaitUntil(const std::function<bool()>& met,
               std::chrono::milliseconds deadline = std::chrono::seconds(30));

/// MathJax as it was built beside the tests; empty when the set-up did not bring it.
std::filesystem::path BuiltMathJax();

/// An equation view with waiting calls.
class EquationWorld {
 public:
  EquationWorld();
  explicit EquationWorld(const ui::EquationOptions& options);

  /// What MathJax says against a formula that is shown; "no answer" when there is none in time.
  std::string Show(const std::string& formula, tools::EquationForm form = tools::EquationForm::Native);
  Result<std::string> Native(const std::string& formula);
  Result<ui::EquationPicture> Picture(const std::string& formula);

  ui::EquationView& view() { return *m_view; }

  /// The view of this test run that stays warm, and its end, which must come before the application's.
  static EquationWorld& Warm();
  static void EndWarm();

 private:
  shell::StringTable m_strings;
  std::unique_ptr<ui::EquationView> m_view;
};

/// Leaves the test when MathJax was not installed where the tests were built.
#define NEEDS_MATHJAX() \
  if (quill::test::BuiltMathJax().empty()) GTEST_SKIP() << "MathJax is not installed"

}  // namespace quill::test
