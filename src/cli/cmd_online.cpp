#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <nlohmann/json.hpp>

#include "cli/commands.h"
#include "cli/console.h"
#include "cli/interrupts.h"
#include "cli/online_terminal.h"
#include "content/unicode_text.h"
#include "online/online_main.h"
#include "platform/curl/curl_http.h"
#include "shell/globals.h"
#include "shell/online_session.h"

namespace quill::cli {
namespace {

constexpr std::int64_t kFindReplace = 10002;

struct OnlineOptions {
  std::int64_t number = 0;
  OnlineRun run;
  bool json = false;
  std::optional<std::string> find;
  std::optional<std::string> replacement;
  bool matchesCase = false;
  bool isTrial = false;
};

/// The words of find and replace, for the command that takes them and for no other.
void CheckWords(const OnlineOptions& options) {
  const bool isWanted = options.number == kFindReplace;
  const std::pair<const char*, const std::optional<std::string>&> kWords[] = {
      {"--find", options.find}, {"--replace", options.replacement}};
  for (const auto& [flag, word] : kWords) {
    if (isWanted && !word) throw Stop(kWrongCall, fmt::format("10002 needs {}", flag));
    if (!isWanted && word) throw Stop(kWrongCall, fmt::format("{} is for 10002 only", flag));
    if (word && !content::IsValidUtf8(*word)) throw Stop(kWrongCall, fmt::format("{} is not UTF-8", flag));
  }
  if (isWanted && options.find->empty()) throw Stop(kWrongCall, "--find: there is nothing to look for");
  if (!isWanted && (options.matchesCase || options.isTrial))
    throw Stop(kWrongCall, "--match-case and --dry-run are for 10002 only");
}

void CheckCall(const OnlineOptions& options) {
  if (!online::MOnlineOneNoteMain::Knows(options.number)) {
    throw Stop(kWrongCall, fmt::format("there is no online command {}; there are 0 to 3 and 10000 to 10005",
                                       options.number));
  }
  if (options.number < 2 && !options.run.file) {
    throw Stop(kWrongCall, "this command writes a file: name it with --file");
  }
  if (!content::IsValidUtf8(options.run.link)) throw Stop(kWrongCall, "--link: the link is not UTF-8");
  CheckWords(options);
}

std::string Pretty(const nlohmann::ordered_json& value) {
  return value.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
}

std::string Counted(std::size_t count, std::string_view one, std::string_view many) {
  return fmt::format("{} {}", count, count == 1 ? one : many);
}

nlohmann::json OrNull(const std::optional<std::string>& text) {
  return text ? nlohmann::json(*text) : nlohmann::json();
}

/// The changes in the order in which they are sent, each with its target first.
nlohmann::ordered_json ChangesOf(const std::optional<online::PageEdit>& edit) {
  return edit ? nlohmann::ordered_json::parse(edit->json) : nlohmann::ordered_json::array();
}

void PrintEdit(const OnlineOptions& options, const std::optional<online::PageEdit>& edit, int requests) {
  for (const std::string& message : options.run.messages) PrintError(message);
  if (edit) {
    PrintError(Counted(edit->matchCount, "match", "matches") + " in " +
               Counted(edit->changeCount, "element", "elements"));
  }
  if (options.json) {
    return WriteOutput("", Pretty({{"command", options.number},
                                   {"matches", edit ? edit->matchCount : 0},
                                   {"elements", edit ? edit->changeCount : 0},
                                   {"isSent", edit && !options.isTrial},
                                   {"changes", ChangesOf(edit)},
                                   {"messages", options.run.messages},
                                   {"requests", requests}}));
  }
  if (edit) WriteOutput("", Pretty(ChangesOf(edit)));
}

void PrintRun(const OnlineOptions& options, int requests) {
  const OnlineRun& run = options.run;
  for (const std::string& message : run.messages) PrintError(message);
  if (options.json) {
    const nlohmann::json object = {{"command", options.number},      {"html", OrNull(run.html)},
                                   {"address", OrNull(run.address)}, {"list", run.list},
                                   {"messages", run.messages},       {"requests", requests}};
    return WriteOutput("", Pretty(object));
  }
  if (run.html) WriteOutput("", *run.html + "\n");
  if (run.address) WriteOutput("", *run.address + "\n");
  if (!run.list.is_null()) WriteOutput("", Pretty(run.list));
}

int RunOnline(const Call& call, OnlineOptions& options) {
  CheckCall(options);
  WatchInterrupts();
  const platform::SystemClock clock;
  shell::Globals globals = shell::InitGlobals(call.root, clock);
  if (!globals.settingsProblem.empty()) PrintError(globals.settingsProblem);
  shell::Explain explain = MakeExplain(call);
  platform::CurlHttp http;
  OnlineTerminal terminal(call, options.run, explain);
  online::MOnlineOneNoteMain main(terminal, shell::OwnSession(globals), http, clock);
  if (options.number == kFindReplace) {
    const auto edit = main.ReplaceWithoutScreen(
        {*options.find, *options.replacement, options.matchesCase, options.isTrial});
    PrintEdit(options, edit, main.RequestCount());
  } else {
    main.RunInsert(options.number);
    PrintRun(options, main.RequestCount());
  }
  return options.run.messages.empty() && !WasInterrupted() ? kDone : kWorkFailed;
}

}  // namespace

void AddOnline(CLI::App& app, Call& call) {
  auto options = std::make_shared<OnlineOptions>();
  CLI::App* online = app.add_subcommand(
      "online",
      "Run a command on the online copy of a page: 0 and 1 export its tags, 2 and 3 list its headings,"
      " 10000 its section's pages, 10001 and 10005 the notebooks, 10002 replaces a text in it, 10003 the way "
      "to"
      " it, 10004 prints the address that exports its notebook");
  online->add_option("number", options->number, "Number of the command")->required()->type_name("NUMBER");
  online->add_option("--link", options->run.link, "The page's client link, as OneNote copies it")
      ->required()
      ->type_name("LINK");
  online->add_option("--file", options->run.file, "Where 0 and 1 write to")->type_name("FILE");
  online->add_option("--find", options->find, "What 10002 looks for")->type_name("TEXT");
  online->add_option("--replace", options->replacement, "What it puts in its place")->type_name("TEXT");
  online->add_flag("--match-case", options->matchesCase, "Capital and small letters are not the same");
  online->add_flag("--dry-run", options->isTrial, "Print the changes of 10002, do not send them");
  online->add_flag("--yes", options->run.yes, "Agree to what is asked");
  online->add_flag("--json", options->json, "Print one JSON object with result, messages and requests");
  online->callback([&call, options] { call.status = RunOnline(call, *options); });
}

}  // namespace quill::cli
