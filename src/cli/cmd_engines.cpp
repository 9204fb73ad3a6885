#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "cli/console.h"
#include "cli/interrupts.h"
#include "cli/temporary_folder.h"
#include "content/find_text.h"
#include "content/unicode_text.h"
#include "platform/curl/curl_http.h"
#include "platform/posix/posix_process_runner.h"
#include "platform/posix/preferred_languages.h"
#include "shell/globals.h"
#include "shell/highlighter.h"
#include "tools/detect_language.h"
#include "tools/phonetics_lookup.h"
#include "tools/syntax_highlight.h"
#include "tools/syntax_highlight_tables.h"

namespace quill::cli {
namespace {

/// The name as the list spells it, found in any case. Stops with the names that there are.
template <class Names>
std::string ChooseName(const char* option, const std::string& given, const Names& names) {
  std::string all;
  for (const std::string_view name : names) {
    if (content::ToLower(name) == content::ToLower(given)) return std::string(name);
    all += all.empty() ? "" : ", ";
    all += name;
  }
  throw Stop(kWrongCall,
             fmt::format("{}: there is no \"{}\"; there are {}", option, given.substr(0, 80), all));
}

template <class Rows>
std::vector<std::string_view> NamesOf(const Rows& rows) {
  std::vector<std::string_view> names;
  for (const auto& row : rows) names.push_back(row.name);
  return names;
}

struct HighlightOptions {
  std::string language;
  std::optional<std::string> theme;
  std::optional<std::string> font;
  std::optional<int> size;
  std::optional<bool> hasLineNumbers;
  std::optional<bool> isBold;
  std::optional<bool> isFramed;
  std::optional<std::string> shading;
  bool usesOwnRules = false;
  std::string in = "-";
  std::string out;
};

/// A language of the list; empty for "auto".
std::string ChooseLanguage(const std::string& given) {
  if (content::ToLower(given) == "auto") return {};
  std::vector<std::string_view> names = NamesOf(tools::SyntaxLanguages());
  names.push_back("auto");
  return ChooseName("--lang", given, names);
}

std::string LanguageOf(const std::string& code) {
  const auto detected = tools::DetectLanguage(code);
  if (!detected) throw Stop(kWorkFailed, "the language of this code cannot be told; name it with --lang");
  return std::string(*detected);
}

/// A colour as "#RRGGBB"; empty: fine.
std::string CheckColor(const std::string& color) {
  const bool isColor = color.size() == 7 && color[0] == '#' &&
                       color.find_first_not_of("0123456789abcdefABCDEF", 1) == std::string::npos;
  return isColor ? "" : "expected a colour as #RRGGBB, not " + color.substr(0, 80);
}

tools::HighlightRequest RequestOf(const HighlightOptions& options, const shell::Settings& settings) {
  tools::HighlightRequest request;
  request.language = ChooseLanguage(options.language);
  request.theme = options.theme ? ChooseName("--theme", *options.theme, NamesOf(tools::SyntaxThemes()))
                                : settings.Syntax_Theme;
  request.code = ReadInputText(options.in);
  if (request.language.empty() && !request.code.empty()) request.language = LanguageOf(request.code);
  request.font = options.font.value_or(settings.Syntax_Font);
  request.fontSize = options.size ? std::to_string(*options.size) : settings.Syntax_FontSize;
  request.hasLineNumbers = options.hasLineNumbers.value_or(settings.Syntax_LineNumbers);
  request.frame.isBold = options.isBold.value_or(settings.Syntax_Bold);
  request.frame.isFramed = options.isFramed.value_or(options.shading.has_value() || settings.Syntax_FrameUp);
  request.frame.color = options.shading.value_or(settings.Syntax_Shaping);
  if (options.usesOwnRules) request.source = tools::SyntaxSource::Name;
  return request;
}

/// Why there is no coloured code, with the first line of what the system or the program said.
std::string FailureText(const shell::StringTable& strings, const tools::HighlightFailure& failure) {
  if (failure.problem == tools::HighlightProblem::NoCode) return "there is no code in the input";
  std::string text(strings.Text(tools::HighlightProblemKey(failure.problem)));
  const std::string_view detail = failure.detail;
  const std::string_view line = detail.substr(0, detail.find('\n'));
  if (!line.empty()) text += fmt::format(" ({})", line);
  return text;
}

int PrintHighlighted(const Call& call, const HighlightOptions& options) {
  WatchInterrupts();
  const shell::Globals globals = shell::OpenGlobals(call.root, platform::SystemClock());
  const tools::HighlightRequest request = RequestOf(options, globals.settings);
  platform::PosixProcessRunner runner;
  const tools::HighlighterPlace place = shell::FindHighlighter(globals.settings, runner);
  if (place.isSettingUseless) PrintError("note: the setting HighlighterPath names no program");
  const TemporaryFolder folder;
  tools::HighlightTools tools{.runner = runner, .program = place.path, .folder = folder.path()};
  tools.isCancelled = WasInterrupted;
  const auto html = tools::Highlight(request, tools);
  if (!html.ok()) {
    if (WasInterrupted()) return kWorkFailed;
    PrintError(FailureText(call.strings, html.error()));
    return kWorkFailed;
  }
  WriteOutput(options.out, *html);
  return kDone;
}

struct PhoneticsOptions {
  std::string word;
  std::optional<std::string> language;
  bool json = false;
};

std::string_view SourceName(tools::PhoneticSource source) {
  switch (source) {
    case tools::PhoneticSource::None:
      return "none";
    case tools::PhoneticSource::Dictionary:
      return "dictionary";
    case tools::PhoneticSource::SpeechSynthesizer:
      return "synthesizer";
    case tools::PhoneticSource::Transliteration:
      return "transliteration";
  }
  return "none";
}

/// A dictionary by the name of its host; one without by the name of its set.
std::string DictionaryName(const tools::DictionaryRow& row, const tools::DictionaryHosts& hosts) {
  const std::string host = tools::DictionaryHostName(row, hosts);
  if (!host.empty()) return host;
  return fmt::format("{} dictionary for {}",
                     row.set == tools::DictionarySet::Primary ? "primary" : "secondary", row.language);
}

nlohmann::json AsJson(const tools::PhoneticQuery& query, const tools::PhoneticAnswer& answer,
                      const tools::DictionaryHosts& hosts, const shell::StringTable& strings) {
  nlohmann::json problems = nlohmann::json::array();
  for (const tools::DictionaryProblem& problem : answer.problems) {
    problems.push_back({{"dictionary", DictionaryName(*problem.dictionary, hosts)},
                        {"reason", std::string(strings.Text(tools::DictionaryProblemKey(problem)))},
                        {"status", problem.status}});
  }
  nlohmann::json json = {{"word", query.word},          {"language", query.language},
                         {"phonetic", answer.phonetic}, {"source", SourceName(answer.source)},
                         {"dictionary", nullptr},       {"problems", problems}};
  if (answer.dictionary != nullptr) json["dictionary"] = DictionaryName(*answer.dictionary, hosts);
  return json;
}

/// On standard error: what a reader should know of the answer beside the transcription itself.
void PrintNotes(const tools::PhoneticAnswer& answer, const tools::DictionaryHosts& hosts,
                const shell::StringTable& strings) {
  if (answer.source == tools::PhoneticSource::SpeechSynthesizer)
    PrintError("note: from the speech synthesizer, not looked up in a dictionary");
  if (answer.source == tools::PhoneticSource::Transliteration)
    PrintError("note: by transliteration, not looked up in a dictionary");
  if (answer.source != tools::PhoneticSource::None) return;
  PrintError(strings.Text("errPhonetics"));
  for (const tools::DictionaryProblem& problem : answer.problems) {
    PrintError(fmt::format("{}: {}", DictionaryName(*problem.dictionary, hosts),
                           strings.Text(tools::DictionaryProblemKey(problem))));
  }
}

int PrintPhonetics(const Call& call, const PhoneticsOptions& options) {
  WatchInterrupts();
  tools::PhoneticQuery query;
  query.word = content::TrimWhite(options.word);
  if (query.word.empty()) throw Stop(kWrongCall, "the word is empty");
  if (!content::IsValidUtf8(query.word)) throw Stop(kWrongCall, "the word is not UTF-8");
  const shell::Settings settings = shell::OpenGlobals(call.root, platform::SystemClock()).settings;
  query.language = ChooseName("--language", options.language.value_or(settings.Phonetics_Language),
                              tools::PhoneticLanguages());
  query.isCancelled = WasInterrupted;
  const std::vector<std::string> preferred = platform::LanguagesOfEnvironment();
  if (!preferred.empty()) query.first = tools::FirstDictionarySet(preferred.front());

  const tools::DictionaryHosts hosts = tools::DictionaryHostsOfEnvironment();
  platform::CurlHttp http;
  platform::PosixProcessRunner runner;
  const tools::PhoneticAnswer answer = tools::FindPhonetic(
      query, hosts, {settings.Phonetics_Synthesizer, settings.Phonetics_Transliteration}, http, runner);
  if (WasInterrupted()) return kWorkFailed;
  PrintNotes(answer, hosts, call.strings);
  if (options.json) {
    WriteOutput("", AsJson(query, answer, hosts, call.strings)
                            .dump(2, ' ', false, nlohmann::json::error_handler_t::replace) +
                        "\n");
  } else if (!answer.phonetic.empty()) {
    WriteOutput("", answer.phonetic + "\n");
  }
  return answer.phonetic.empty() ? kWorkFailed : kDone;
}

/// Adds --NAME and --no-NAME; without either the value stays empty.
void AddSwitch(CLI::App& command, const std::string& name, std::optional<bool>& value,
               const std::string& meaning) {
  command.add_flag_function(
      fmt::format("--{0},!--no-{0}", name), [&value](std::int64_t count) { value = count > 0; }, meaning);
}

}  // namespace

void AddHighlight(CLI::App& app, Call& call) {
  auto options = std::make_shared<HighlightOptions>();
  CLI::App* highlight = app.add_subcommand("highlight", "Print source code in colours, as a page shows it");
  highlight
      ->add_option("--lang", options->language, "The code's language as the program's list names it, or auto")
      ->required()
      ->type_name("NAME");
  highlight->add_option("--theme", options->theme, "Colour theme instead of the one chosen last")
      ->type_name("NAME");
  highlight->add_option("--font", options->font, "Font instead of the one chosen last")->type_name("NAME");
  highlight->add_option("--size", options->size, "Font size in points instead of the one chosen last")
      ->type_name("N")
      ->check(CLI::Range(1, 999));
  AddSwitch(*highlight, "line-numbers", options->hasLineNumbers, "Number the lines, or not");
  AddSwitch(*highlight, "bold", options->isBold, "Bold, or not");
  AddSwitch(*highlight, "frame", options->isFramed, "Put a frame around the code, or not");
  highlight->add_option("--shading", options->shading, "Background of the frame")
      ->type_name("#RRGGBB")
      ->check(CheckColor);
  highlight->add_flag("--own-rules", options->usesOwnRules,
                      "Colour by the rules of the language itself, not by those of its file extension");
  highlight->add_option("--in", options->in, "The code; - is standard input")->type_name("FILE");
  highlight->add_option("--out", options->out, "Where the result goes instead of standard output")
      ->type_name("FILE");
  highlight->callback([&call, options] { call.status = PrintHighlighted(call, *options); });
}

void AddPhonetics(CLI::App& app, Call& call) {
  auto options = std::make_shared<PhoneticsOptions>();
  CLI::App* phonetics = app.add_subcommand("phonetics", "Print how a word is pronounced");
  phonetics->add_option("word", options->word, "The word")->required()->type_name("WORD");
  phonetics->add_option("--language", options->language, "Its language instead of the one chosen last")
      ->type_name("NAME");
  phonetics->add_flag("--json", options->json,
                      "One JSON object with the source and the dictionaries' problems");
  phonetics->callback([&call, options] { call.status = PrintPhonetics(call, *options); });
}

}  // namespace quill::cli
