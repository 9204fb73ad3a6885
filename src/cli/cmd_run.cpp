#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <charconv>
#include <memory>
#include <nlohmann/json.hpp>

#include "cli/commands.h"
#include "cli/console.h"
#include "cli/file_run.h"
#include "cli/remote.h"
#include "content/text_between.h"
#include "shell/command_table.h"
#include "shell/transform_table.h"

namespace quill::cli {
namespace {

constexpr std::int64_t kSaveAsTemplate = 8;

struct RunOptions {
  std::string command;
  std::optional<std::string> in;
  std::optional<std::string> text;
  std::optional<std::string> file;
  std::optional<std::int64_t> tag;
  std::string out;
  bool fragment = false;
  bool json = false;
  DialogFlags dialog;
};

std::optional<std::int64_t> AsNumber(const std::string& text) {
  std::int64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

/// What the user asked for, by number or by name. Stops with the nearest names when there is no such thing.
const shell::CommandRow& WantedCommand(const std::string& text) {
  const std::optional<std::int64_t> number = AsNumber(text);
  const shell::CommandRow* row = number ? shell::FindCommandByNumber(*number) : shell::FindCommand(text);
  if (row != nullptr) return *row;
  if (number) throw Stop(kWrongCall, fmt::format("there is no command {}; `quill list` shows all", *number));
  std::string message = fmt::format("there is no action \"{}\"; nearest:", text.substr(0, 80));
  for (const std::string& name : shell::NearestActions(text)) message.append(" ").append(name);
  throw Stop(kWrongCall, message);
}

nlohmann::json AsJson(const shell::CommandRow& row, const FileOutcome& outcome) {
  nlohmann::json pasted;
  if (outcome.paste) {
    const auto& contents = outcome.paste->contents;
    if (contents.html) pasted["html"] = *contents.html;
    if (contents.text && !contents.html) pasted["text"] = *contents.text;
    pasted["replaceSelection"] = outcome.paste->replaceSelection;
  }
  nlohmann::json data = nlohmann::json::object();
  for (const tools::CountRow& figure : outcome.figures) data[figure.key] = figure.value;
  nlohmann::json clipboard;
  if (outcome.clipboardText) clipboard["text"] = *outcome.clipboardText;
  return {{"command", row.number},
          {"action", row.action},
          {"result", outcome.result ? nlohmann::json(*outcome.result) : nlohmann::json()},
          {"pasted", pasted},
          {"clipboard", clipboard},
          {"messages", outcome.messages},
          {"data", data}};
}

FileInput ReadInput(const RunOptions& options) {
  FileInput input;
  input.html = ReadInputText(*options.in);
  if (options.fragment)
    input.html = content::JoinFragment(content::kBuiltHead, input.html, content::kBuiltTail);
  if (options.text) input.text = ReadInputText(*options.text);
  input.file = options.file;
  input.dialog = options.dialog;
  return input;
}

int RunOnFiles(Call& call, const RunOptions& options, const shell::CommandRow& row) {
  if (row.number == 0) {
    throw Stop(kWrongCall, fmt::format("{} does not work on a file; use `quill trigger`", row.action));
  }
  if (row.number == kSaveAsTemplate)
    throw Stop(kWrongCall, "a template needs a name; use `quill templates save NAME --in FILE`");
  FileInput input = ReadInput(options);
  if (row.number == 25) {
    input.title = input.text.value_or(input.html);
    input.text.reset();
  }
  const platform::SystemClock clock;
  constexpr std::int64_t kInsertHtml = 23;
  const std::string inserted = row.number == kInsertHtml ? input.html : std::string();
  const FileOutcome outcome =
      RunOnFile(call, {row.number, options.tag.value_or(row.argument), 0, inserted}, std::move(input), clock);
  if (outcome.missedSavePath)
    throw Stop(kWrongCall, fmt::format("{} needs a file to write: give --file FILE", row.action));
  if (options.json) {
    WriteOutput(options.out,
                AsJson(row, outcome).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) + "\n");
  } else {
    const std::string result = PrintedResult(call, outcome, options.fragment);
    const bool isDone = outcome.messages.empty();
    if (!result.empty() || (isDone && !options.out.empty())) WriteOutput(options.out, result);
  }
  for (const std::string& message : outcome.messages) PrintError(message);
  return outcome.messages.empty() ? kDone : kWorkFailed;
}

}  // namespace

void AddRun(CLI::App& app, Call& call) {
  auto options = std::make_shared<RunOptions>();
  CLI::App* run = app.add_subcommand("run", "Run a command on a file, or on the live selection without --in");
  run->add_option("command", options->command, "Number or action name, see `quill list`")
      ->required()
      ->type_name("NUMBER|ACTION");
  run->add_option("--in", options->in, "Pasteboard HTML to work on; - is standard input")->type_name("FILE");
  run->add_flag("--fragment", options->fragment, "The input is a bare fragment; so is the output");
  run->add_option("--text", options->text, "The plain text that lies beside the HTML")->type_name("FILE");
  run->add_option("--out", options->out, "Where the result goes instead of standard output")
      ->type_name("FILE");
  run->add_option("--file", options->file, "Answer to a save panel")->type_name("FILE");
  run->add_option("--tag", options->tag, "Page title tag, 0 to 15")->type_name("N");
  AddDialogFlags(*run, options->dialog);
  run->add_flag("--json", options->json, "One JSON object that tells everything the command did");
  run->callback([&call, options] {
    const shell::CommandRow& row = WantedCommand(options->command);
    if (options->in) {
      call.status = RunOnFiles(call, *options, row);
    } else if (HasAny(options->dialog)) {
      throw Stop(kWrongCall,
                 "the answers to dialogs are for files (--in FILE); in the application its dialog asks");
    } else {
      call.status = RunInApplication(call, std::string(row.action), options->tag);
    }
  });
}

void AddTrigger(CLI::App& app, Call& call) {
  auto options = std::make_shared<RunOptions>();
  CLI::App* trigger = app.add_subcommand("trigger", "Run an action in the running application");
  trigger->add_option("action", options->command, "Action name or number, see `quill list`")
      ->required()
      ->type_name("ACTION");
  trigger->add_option("--tag", options->tag, "Page title tag, 0 to 15")->type_name("N");
  trigger->callback([&call, options] {
    const shell::CommandRow& row = WantedCommand(options->command);
    call.status = RunInApplication(call, std::string(row.action), options->tag);
  });
}

shell::Explain MakeExplain(const Call& call) {
  shell::Explain explain;
  const auto print = [](std::string_view line) { fmt::print(stderr, "{}\n", line); };
  if (call.explain) explain.SendStepsTo(print);
  if (call.stats) explain.SendTimingsTo(print);
  return explain;
}

}  // namespace quill::cli
