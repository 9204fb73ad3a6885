#pragma once
#include <chrono>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "platform/process_runner.h"
#include "tools/syntax_highlight_text.h"

namespace quill::tools {

/// How the highlighter is told which language the code is in.
enum class SyntaxSource {
  Extension,  ///< it infers it from the name of the source file
  Name        ///< by "--syntax" and the language's own name, which is right where the extension is not
};

/// A piece of code and how it is to look; the fields are those of the dialog.
struct HighlightRequest {
  std::string code;
  std::string language;  ///< a name of `SyntaxLanguages`
  std::string theme;     ///< a name of `SyntaxThemes`
  std::string font;
  std::string fontSize;  ///< digits
  bool hasLineNumbers = false;
  CodeFrame frame;
  SyntaxSource source = SyntaxSource::Extension;
};

/// Why there is no coloured code. The texts shown to the user are in the string table under the key that
/// `HighlightProblemKey` gives.
enum class HighlightProblem {
  NoCode,           ///< nothing to do; no message
  UnknownLanguage,  ///< not in the table, or without an extension
  UnknownTheme,
  BadFontSize,
  NoHighlighter,  ///< the program is not there
  NotWritten,     ///< the source file
  NoResult,       ///< the program ran and left nothing
  TooLarge,
  TimedOut,
  Cancelled  ///< no message
};

struct HighlightFailure {
  HighlightProblem problem = HighlightProblem::NoResult;
  std::string detail;  ///< for the log: what the system or the program said; never code
};

/// What the dialog says first, whatever the reason.
inline constexpr std::string_view kHighlightErrorKey = "errHighlight";

/// The string-table key of a problem's reason; empty where there is nothing to be told.
std::string_view HighlightProblemKey(HighlightProblem problem);

/// The files of a run in the temporary folder; they stay there until the next.
std::filesystem::path HighlightSourceFile(const std::filesystem::path& folder, std::string_view extension);
std::filesystem::path HighlightOutputFile(const std::filesystem::path& folder);

/// The words of the highlighter's command: what is free text (font, size) stays within one word.
std::vector<std::string> HighlightCommand(const std::string& program, const HighlightRequest& request,
                                          std::string_view style, const std::filesystem::path& folder);

/// What a run needs beside the request.
struct HighlightTools {
  platform::ProcessRunner& runner;
  std::string program;           ///< the highlighter; empty when none was found
  std::filesystem::path folder;  ///< temporary files; absolute
  std::chrono::milliseconds deadline{120'000};
  std::function<bool()> isCancelled = nullptr;
};

/// Colours code: writes it to a file, runs the highlighter on it, and makes its HTML fit for a page. Nothing
/// is run for a request that cannot succeed. 20,000 lines take a few seconds. Any thread.
Result<std::string, HighlightFailure> Highlight(const HighlightRequest& request, const HighlightTools& tools);

}  // namespace quill::tools
