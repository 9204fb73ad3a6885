#include "tools/syntax_highlight.h"

#include <algorithm>

#include "base/atomic_file.h"
#include "content/unicode_text.h"
#include "tools/syntax_highlight_tables.h"

namespace quill::tools {
namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t kLargestResult = 256u << 20;
constexpr std::size_t kToldOutput = 4096;  ///< of what the highlighter says about itself

Failure<HighlightFailure> Problem(HighlightProblem problem, std::string detail = {}) {
  return Failure{HighlightFailure{problem, std::move(detail)}};
}

bool IsNumber(std::string_view text) {
  return !text.empty() && std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

/// Why the highlighter left nothing.
HighlightFailure ReasonOf(const platform::ProcessResult& run) {
  switch (run.end) {
    case platform::ProcessEnd::NotFound:
    case platform::ProcessEnd::NotStarted:
      return {HighlightProblem::NoHighlighter, run.reason};
    case platform::ProcessEnd::TimedOut:
      return {HighlightProblem::TimedOut, {}};
    case platform::ProcessEnd::Cancelled:
      return {HighlightProblem::Cancelled, {}};
    case platform::ProcessEnd::Exited:
    case platform::ProcessEnd::Signalled:
      return {HighlightProblem::NoResult, run.errors};
  }
  return {HighlightProblem::NoResult, run.errors};
}

/// Runs the highlighter once; its HTML counts, not its exit status.
Result<std::string, HighlightFailure> RunOnce(const HighlightRequest& request, std::string_view style,
                                              const HighlightTools& tools) {
  const fs::path output = HighlightOutputFile(tools.folder);
  std::error_code error;
  fs::remove(output, error);
  if (error) return Problem(HighlightProblem::NotWritten, error.message());

  platform::ProcessRequest process;
  process.command = HighlightCommand(tools.program, request, style, tools.folder);
  process.folder = tools.folder;
  process.deadline = tools.deadline;
  process.outputLimit = kToldOutput;
  process.isCancelled = tools.isCancelled;
  const platform::ProcessResult run = tools.runner.Run(process);
  const bool wasStopped =
      run.end == platform::ProcessEnd::Cancelled || run.end == platform::ProcessEnd::TimedOut;
  if (wasStopped || !fs::exists(output, error)) return Failure{ReasonOf(run)};
  const std::uintmax_t size = fs::file_size(output, error);
  if (!error && size > kLargestResult) return Problem(HighlightProblem::TooLarge);
  Result<std::string> html = ReadFile(output, kLargestResult);
  if (!html) return Problem(HighlightProblem::NoResult, html.error());
  if (html->empty()) return Failure{ReasonOf(run)};
  if (!content::IsValidUtf8(*html)) return Problem(HighlightProblem::NoResult, "not UTF-8");
  return std::move(*html);
}

}  // namespace

std::string_view HighlightProblemKey(HighlightProblem problem) {
  switch (problem) {
    case HighlightProblem::NoCode:
    case HighlightProblem::Cancelled:
      return "";
    case HighlightProblem::UnknownLanguage:
      return "errHighlightLanguage";
    case HighlightProblem::UnknownTheme:
      return "errHighlightTheme";
    case HighlightProblem::BadFontSize:
      return "errHighlightFontSize";
    case HighlightProblem::NoHighlighter:
      return "errHighlightProgram";
    case HighlightProblem::NotWritten:
      return "errHighlightFile";
    case HighlightProblem::NoResult:
      return "errHighlightResult";
    case HighlightProblem::TooLarge:
      return "errHighlightTooLarge";
    case HighlightProblem::TimedOut:
      return "errHighlightTimedOut";
  }
  return "";
}

fs::path HighlightSourceFile(const fs::path& folder, std::string_view extension) {
  return folder / ("quillcode." + std::string(extension));
}

fs::path HighlightOutputFile(const fs::path& folder) {
  return folder / "quillcode.html";
}

std::vector<std::string> HighlightCommand(const std::string& program, const HighlightRequest& request,
                                          std::string_view style, const fs::path& folder) {
  const std::string_view extension = SyntaxExtension(request.language).value_or(std::string_view());
  std::vector<std::string> words{program,
                                 "-i",
                                 HighlightSourceFile(folder, extension).string(),
                                 "-o",
                                 HighlightOutputFile(folder).string(),
                                 "-q",
                                 "--replace-tabs=4",
                                 "--include-style",
                                 "--inline-css",
                                 "--style",
                                 std::string(style),
                                 "--font=" + request.font,
                                 "--font-size=" + request.fontSize};
  if (request.hasLineNumbers) words.emplace_back("--line-numbers");
  const SyntaxLanguage* language = FindSyntaxLanguage(request.language);
  if (request.source == SyntaxSource::Name && language != nullptr)
    words.push_back("--syntax=" + std::string(language->syntax));
  return words;
}

namespace {

/// The head's title names the source file; where that lay is nobody's business.
std::string WithoutFolder(std::string html, const fs::path& folder) {
  const std::size_t head = std::min(html.find("<body"), html.size());
  const std::string name = folder.string() + "/";
  const std::size_t at = std::string_view(html).substr(0, head).find(name);
  if (at != std::string_view::npos) html.erase(at, name.size());
  return html;
}

}  // namespace

Result<std::string, HighlightFailure> Highlight(const HighlightRequest& request,
                                                const HighlightTools& tools) {
  if (request.code.empty()) return Problem(HighlightProblem::NoCode);
  const auto extension = SyntaxExtension(request.language);
  if (!extension) return Problem(HighlightProblem::UnknownLanguage);
  const SyntaxTheme* theme = FindSyntaxTheme(request.theme);
  if (theme == nullptr) return Problem(HighlightProblem::UnknownTheme);
  if (!IsNumber(request.fontSize)) return Problem(HighlightProblem::BadFontSize);
  if (tools.program.empty()) return Problem(HighlightProblem::NoHighlighter);

  const fs::path source = HighlightSourceFile(tools.folder, *extension);
  const Status<> written = WriteFileAtomically(source, CodeFileText(request.code));
  if (!written) return Problem(HighlightProblem::NotWritten, written.error());

  auto html = RunOnce(request, theme->style, tools);
  if (!html && html.error().problem == HighlightProblem::NoResult && !theme->otherStyle.empty())
    html = RunOnce(request, theme->otherStyle, tools);
  if (!html) return Failure{html.error()};
  return FrameCode(ConvertToFit1651(ReduceEntities(ClaimUtf8(WithoutFolder(std::move(*html), tools.folder)))),
                   request.frame);
}

}  // namespace quill::tools
