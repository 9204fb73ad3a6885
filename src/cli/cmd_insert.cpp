#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>

#include "cli/commands.h"
#include "cli/console.h"
#include "cli/file_run.h"
#include "cli/iso_time.h"

namespace quill::cli {
namespace {

struct InsertOptions {
  std::string kind;
  std::optional<std::string> now;
  std::string html = "-";
  std::string out;
  bool fragment = false;
};

struct InsertKind {
  std::string_view name;
  std::int64_t command;
  std::int64_t argument;
};

constexpr InsertKind kKinds[] = {{"date", 20, 1}, {"time", 20, 2},     {"datetime", 20, 0},
                                 {"html", 23, 0}, {"calendar", 21, 0}, {"year-calendar", 22, 0}};

const InsertKind& FindKind(const std::string& name) {
  for (const InsertKind& kind : kKinds) {
    if (kind.name == name) return kind;
  }
  throw Stop(kWrongCall, fmt::format("cannot insert \"{}\"; there are date, time, datetime, calendar, "
                                     "year-calendar and html",
                                     name.substr(0, 80)));
}

int Insert(Call& call, const InsertOptions& options) {
  const InsertKind& kind = FindKind(options.kind);
  platform::FixedClock clock(std::chrono::system_clock::now());
  if (options.now) {
    const auto moment = ParseIsoTime(*options.now);
    if (!moment.ok()) throw Stop(kWrongCall, fmt::format("--now: {}", moment.error()));
    clock.Set(*moment);
  }
  const std::string html = kind.name == "html" ? ReadInputText(options.html) : std::string();
  const FileOutcome outcome = RunOnFile(call, kind.command, kind.argument, html, {}, clock);
  for (const std::string& message : outcome.messages) PrintError(message);
  if (!outcome.messages.empty()) return kWorkFailed;
  WriteOutput(options.out, PrintedResult(outcome, options.fragment));
  return kDone;
}

}  // namespace

void AddInsert(CLI::App& app, Call& call) {
  auto options = std::make_shared<InsertOptions>();
  CLI::App* insert = app.add_subcommand("insert", "Print the document that an insert command would paste");
  insert->add_option("what", options->kind, "date, time, datetime, calendar, year-calendar or html")
      ->required();
  insert->add_option("--now", options->now, "Take this moment instead of the clock's")->type_name("ISO8601");
  insert->add_option("--html", options->html, "The HTML to insert; - is standard input")->type_name("FILE");
  insert->add_option("--out", options->out, "Where the result goes instead of standard output")
      ->type_name("FILE");
  insert->add_flag("--fragment", options->fragment, "Only the content, without the document around it");
  insert->callback([&call, options] { call.status = Insert(call, *options); });
}

}  // namespace quill::cli
