#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>

#include "cli/commands.h"
#include "cli/console.h"
#include "cli/file_run.h"
#include "cli/iso_time.h"
#include "tools/calendar.h"

namespace quill::cli {
namespace {

struct InsertOptions {
  std::string kind;
  std::optional<std::string> now;
  std::optional<std::int64_t> year;
  std::optional<std::int64_t> month;
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

constexpr std::int64_t kCalendar = 21, kYearCalendar = 22;

/// The command with its arguments; a calendar is the clock's month unless year or month are given.
FileCommand CommandOf(const InsertKind& kind, const InsertOptions& options, const platform::Clock& clock) {
  const bool isCalendar = kind.command == kCalendar || kind.command == kYearCalendar;
  if (!isCalendar && (options.year || options.month)) {
    throw Stop(kWrongCall, fmt::format("--year and --month belong to calendars, not to \"{}\"", kind.name));
  }
  if (kind.command == kYearCalendar && options.month) {
    throw Stop(kWrongCall, "--month does not go with a year calendar");
  }
  if (!isCalendar) return {kind.command, kind.argument, 0, {}};
  const tools::CalendarMonth now = tools::ShiftMonth(clock.Now(), 0);
  return {kind.command, options.year.value_or(now.year), options.month.value_or(now.month), {}};
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
  FileCommand command = CommandOf(kind, options, clock);
  command.str3 = html;
  const FileOutcome outcome = RunOnFile(call, command, {}, clock);
  for (const std::string& message : outcome.messages) PrintError(message);
  if (!outcome.messages.empty()) return kWorkFailed;
  WriteOutput(options.out, PrintedResult(call, outcome, options.fragment));
  return kDone;
}

}  // namespace

void AddInsert(CLI::App& app, Call& call) {
  auto options = std::make_shared<InsertOptions>();
  CLI::App* insert = app.add_subcommand("insert", "Print the document that an insert command would paste");
  insert->add_option("what", options->kind, "date, time, datetime, calendar, year-calendar or html")
      ->required();
  insert->add_option("--now", options->now, "Take this moment instead of the clock's")->type_name("ISO8601");
  insert->add_option("--year", options->year, "Year of a calendar instead of the present one")
      ->type_name("Y")
      ->check(CLI::Range(1, 9999));
  insert->add_option("--month", options->month, "Month of a calendar, 1 to 12, instead of the present one")
      ->type_name("M")
      ->check(CLI::Range(1, 12));
  insert->add_option("--html", options->html, "The HTML to insert; - is standard input")->type_name("FILE");
  insert->add_option("--out", options->out, "Where the result goes instead of standard output")
      ->type_name("FILE");
  insert->add_flag("--fragment", options->fragment, "Only the content, without the document around it");
  insert->callback([&call, options] { call.status = Insert(call, *options); });
}

}  // namespace quill::cli
