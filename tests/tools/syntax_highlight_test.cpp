#include "tools/syntax_highlight.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "base/atomic_file.h"
#include "content/find_text.h"
#include "platform/posix/posix_process_runner.h"
#include "shell/temporary_folder.h"
#include "tools/detect_language.h"
#include "tools/find_highlighter.h"
#include "tools/highlight_oracles.h"
#include "tools/syntax_highlight_tables.h"

namespace quill::tools {
namespace {

namespace fs = std::filesystem;

/// A small source of each language, by its name.
const std::map<std::string, std::string>& Samples() {
  static const std::map<std::string, std::string> kSamples = [] {
    std::map<std::string, std::string> samples;
    for (const fs::directory_entry& entry : fs::directory_iterator(QUILL_SAMPLE_SOURCES)) {
      const std::string name = content::ReplaceAll(entry.path().stem().string(), "%", "/");
      samples[name] = ReadFile(entry.path()).ValueOr("");
    }
    return samples;
  }();
  return kSamples;
}

platform::ProcessResult Ended(platform::ProcessEnd end, int status = 0) {
  platform::ProcessResult result;
  result.end = end;
  result.status = status;
  return result;
}

/// Runs a function instead of a program.
struct ScriptedRunner final : platform::ProcessRunner {
  std::function<platform::ProcessResult(const platform::ProcessRequest&)> answer;
  std::vector<platform::ProcessRequest> requests;
  platform::ProcessResult Run(const platform::ProcessRequest& request) override {
    requests.push_back(request);
    return answer ? answer(request) : Ended(platform::ProcessEnd::Exited);
  }
};

/// The installed highlighter on one folder.
class Highlighting : public ::testing::Test {
 protected:
  HighlightTools Real() {
    const char* path = std::getenv("PATH");
    const auto isThere = [](const fs::path& file) { return fs::exists(file); };
    return {runner, FindHighlighter("", "", path != nullptr ? path : "", isThere).path, folder.path()};
  }
  HighlightTools Scripted() { return {scripted, "/bin/highlight", folder.path()}; }

  static HighlightRequest Request(std::string_view language, const std::string& code) {
    HighlightRequest request;
    request.code = code;
    request.language = language;
    request.theme = "XCode";
    request.font = "Courier New";
    request.fontSize = "11";
    return request;
  }

  test::TemporaryFolder folder;
  platform::PosixProcessRunner runner;
  ScriptedRunner scripted;
};

void ExpectSameCode(const std::string& html, const std::string& code, std::string_view what) {
  std::string shown = oracle::VisibleCode(html);
  while (shown.ends_with('\n')) shown.pop_back();
  std::string wanted = content::ReplaceAll(oracle::CodeFileText(code), "\t", "    ");
  while (wanted.ends_with('\n') || wanted.ends_with(' ')) wanted.pop_back();
  while (shown.ends_with('\n') || shown.ends_with(' ')) shown.pop_back();
  EXPECT_EQ(shown, wanted) << what;
}

// Every language of the box gives coloured code, character by character the code that was typed.
TEST_F(Highlighting, ColorsEveryLanguage) {
  ASSERT_FALSE(Real().program.empty()) << "highlight is not installed";
  for (const SyntaxLanguage& language : SyntaxLanguages()) {
    const std::string& code = Samples().at(std::string(language.name));
    for (const SyntaxSource source : {SyntaxSource::Extension, SyntaxSource::Name}) {
      HighlightRequest request = Request(language.name, code);
      request.source = source;
      const auto html = Highlight(request, Real());
      if (!SyntaxExtension(language.name)) {
        ASSERT_FALSE(html.ok());
        EXPECT_EQ(html.error().problem, HighlightProblem::UnknownLanguage);
        continue;
      }
      ASSERT_TRUE(html.ok()) << language.name << ": " << html.error().detail;
      ExpectSameCode(*html, code, language.name);
      const bool isPlainText = SyntaxExtension(language.name) == "text" && source == SyntaxSource::Extension;
      if (isPlainText)
        EXPECT_EQ(oracle::CodeColors(*html), 0u) << "the note in the table's header is out of date";
      else
        EXPECT_GE(oracle::CodeColors(*html), 2u) << language.name;
    }
  }
}

// Every theme of the box works with the installed highlighter, under one of its names.
TEST_F(Highlighting, KnowsEveryTheme) {
  for (const SyntaxTheme& theme : SyntaxThemes()) {
    HighlightRequest request = Request("C and C++", Samples().at("C and C++"));
    request.theme = theme.name;
    const auto html = Highlight(request, Real());
    ASSERT_TRUE(html.ok()) << theme.name << ": " << html.error().detail;
    EXPECT_GE(oracle::CodeColors(*html), 2u) << theme.name;
  }
}

// Blank lines, carriage returns and characters of all languages come through; numbers stand before the lines.
TEST_F(Highlighting, KeepsAwkwardCode) {
  const std::string code = "\n\tint a;\r\n\n  // é 中 😀 \"<&>'\n" + std::string(5000, 'x') + "\n";
  auto html = Highlight(Request("C and C++", code), Real());
  ASSERT_TRUE(html.ok()) << html.error().detail;
  ExpectSameCode(*html, code, "awkward code");
  EXPECT_EQ(test::Mode(HighlightSourceFile(folder.path(), "c")), 0600);
  HighlightRequest numbered = Request("C and C++", "int a;\nint b;");
  numbered.hasLineNumbers = true;
  html = Highlight(numbered, Real());
  ASSERT_TRUE(html.ok());
  EXPECT_NE(oracle::VisibleCode(*html).find("2 int b;"), std::string::npos);
}

// 20,000 lines are done in time, and a user who does not want to wait does not.
TEST_F(Highlighting, CopesWithALargeFile) {
  std::string code;
  for (int i = 0; i < 20'000; ++i) code += "    int value = compute(i, \"text\"); // <note>\n";
  const auto html = Highlight(Request("C and C++", code), Real());
  ASSERT_TRUE(html.ok()) << html.error().detail;
  EXPECT_GT(std::count(html->begin(), html->end(), '\n'), 20'000);
  HighlightTools tools = Real();
  tools.isCancelled = [] { return true; };
  const auto cancelled = Highlight(Request("C and C++", code), tools);
  ASSERT_FALSE(cancelled.ok());
  EXPECT_EQ(cancelled.error().problem, HighlightProblem::Cancelled);
}

// What cannot succeed is told without running anything.
TEST_F(Highlighting, RefusesBeforeRunning) {
  const auto problem = [this](auto change) {
    HighlightRequest request = Request("C#", "x");
    change(request);
    const auto html = Highlight(request, Scripted());
    return html.ok() ? HighlightProblem::NoResult : html.error().problem;
  };
  EXPECT_EQ(problem([](auto& r) { r.code = ""; }), HighlightProblem::NoCode);
  EXPECT_EQ(problem([](auto& r) { r.language = "XML"; }), HighlightProblem::UnknownLanguage);
  EXPECT_EQ(problem([](auto& r) { r.language = "../x"; }), HighlightProblem::UnknownLanguage);
  EXPECT_EQ(problem([](auto& r) { r.theme = "--help"; }), HighlightProblem::UnknownTheme);
  for (const char* size : {"", "11pt", "-1", "1 1", "١"})
    EXPECT_EQ(problem([size](auto& r) { r.fontSize = size; }), HighlightProblem::BadFontSize);
  EXPECT_TRUE(scripted.requests.empty());
  HighlightTools none = Scripted();
  none.program = "";
  EXPECT_EQ(Highlight(Request("C#", "x"), none).error().problem, HighlightProblem::NoHighlighter);
  none.program = "/no/such/highlight";
  platform::PosixProcessRunner real;
  EXPECT_EQ(Highlight(Request("C#", "x"), {real, none.program, folder.path()}).error().problem,
            HighlightProblem::NoHighlighter);
}

// The result of an earlier run must never be taken for this one's; the exit status does not matter.
TEST_F(Highlighting, TakesOnlyAFreshResult) {
  folder.Write("quillcode.html", "<body><pre>old</pre></body>");
  auto html = Highlight(Request("C#", "x"), Scripted());
  ASSERT_FALSE(html.ok());
  EXPECT_EQ(html.error().problem, HighlightProblem::NoResult);
  EXPECT_EQ(scripted.requests.size(), 1u);

  scripted.answer = [this](const platform::ProcessRequest&) {
    folder.Write("quillcode.html", "<body><pre>new</pre></body>");
    return Ended(platform::ProcessEnd::Exited, 7);
  };
  html = Highlight(Request("C#", "x"), Scripted());
  ASSERT_TRUE(html.ok());
  EXPECT_EQ(*html, "<body><pre>new</pre></body>");

  scripted.answer = [this](const platform::ProcessRequest&) {
    folder.Write("quillcode.html", "<body><pre>half");
    return Ended(platform::ProcessEnd::TimedOut);
  };
  EXPECT_EQ(Highlight(Request("C#", "x"), Scripted()).error().problem, HighlightProblem::TimedOut);
}

// A suggestion that is wrong is worse than none.
TEST(DetectLanguage, KnowsItsSamples) {
  for (const auto& [name, code] : Samples()) {
    const auto detected = DetectLanguage(code);
    if (name == "INI" || name == "XML")
      EXPECT_EQ(detected, std::nullopt) << name;
    else
      EXPECT_EQ(detected.value_or("nothing"), name);
  }
  for (const char* unsure : {"", "hello world", "x = 1", "The class will begin to import goods from China.",
                             "{}", "page = \"<html>\"", "Keep the document. Let the window. function",
                             "#!/bin/sh\nimport os\ndef f(self): self.x = None"})
    EXPECT_EQ(DetectLanguage(unsure), std::nullopt) << unsure;
  EXPECT_EQ(DetectLanguage("#!/usr/bin/env python3\nx = 1"), "Python");
}

}  // namespace
}  // namespace quill::tools
