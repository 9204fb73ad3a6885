#include "cli/dialog_answers.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <charconv>
#include <span>
#include <string_view>

#include "cli/console.h"
#include "shell/content_requests.h"
#include "shell/engine_requests.h"
#include "tools/table_styles.h"

namespace quill::cli {
namespace {

constexpr std::int64_t kTableStyle = 15, kTable2Text = 17, kText2Table = 18, kPhonetics = 10002;

constexpr std::string_view kTableTextModes[] = {"two-paragraphs", "paragraph", "tabs", "commas", "other"};
constexpr std::string_view kTextTableModes[] = {"paragraphs", "tabs", "commas", "other"};

/// A style by its number or by the name of its icon.
std::int64_t StyleOf(const std::string& text) {
  const auto count = std::ssize(tools::kTableStyles);
  std::int64_t number = -1;
  const char* end = text.data() + text.size();
  const auto parsed = std::from_chars(text.data(), end, number);
  if (parsed.ec == std::errc() && parsed.ptr == end && number >= 0 && number < count) return number;
  for (std::int64_t row = 0; row < count; ++row) {
    if (tools::FindTableStyle(row)->icon == text) return row;
  }
  throw Stop(kWrongCall,
             fmt::format("--style: there is no table style \"{}\"; give 0 to {} or a name such as {}",
                         text.substr(0, 80), count - 1, tools::kTableStyles[0].icon));
}

/// The number of a mode. A separator alone means the last mode, "other".
std::int64_t ModeOf(const DialogFlags& flags, std::span<const std::string_view> names) {
  if (!flags.mode && !flags.separator)
    throw Stop(kWrongCall, fmt::format("give --mode {}", fmt::join(names, "|")));
  const std::string_view wanted = flags.mode ? std::string_view(*flags.mode) : names.back();
  for (std::size_t at = 0; at < names.size(); ++at) {
    if (names[at] != wanted) continue;
    const bool isOther = at + 1 == names.size();
    if (isOther && !flags.separator) throw Stop(kWrongCall, "--mode other needs --separator TEXT");
    if (!isOther && flags.separator)
      throw Stop(kWrongCall, fmt::format("--separator does not go with --mode {}", wanted));
    return static_cast<std::int64_t>(at);
  }
  throw Stop(kWrongCall, fmt::format("--mode: there is no \"{}\"; there are {}", wanted.substr(0, 80),
                                     fmt::join(names, ", ")));
}

void Refuse(bool given, std::string_view flag, std::int64_t number) {
  if (given) throw Stop(kWrongCall, fmt::format("{} does not go with command {}", flag, number));
}

shell::TextTableChoice TextTable(const DialogFlags& flags, const std::optional<std::string>& copiedText) {
  if (!copiedText) throw Stop(kWrongCall, "the table is made from the plain text: give --text FILE");
  shell::TextTableChoice choice{static_cast<tools::TextTableMode>(ModeOf(flags, kTextTableModes)),
                                flags.separator.value_or(""), "", ""};
  if (choice.mode != tools::TextTableMode::Paragraphs) {
    Refuse(flags.columns.has_value(), "--columns", kText2Table);
    Refuse(flags.rows.has_value(), "--rows", kText2Table);
    return choice;
  }
  if (!flags.columns) throw Stop(kWrongCall, "a table by paragraphs needs --columns N");
  choice.columns = std::to_string(*flags.columns);
  const tools::TableSizeFields sizes =
      tools::GetColumnsRows(tools::TextToTableSource(*copiedText), {choice.mode, choice.separator},
                            choice.columns, tools::EditedField::Columns);
  choice.rows = std::to_string(flags.rows.value_or(sizes.rows));
  return choice;
}

}  // namespace

void AddDialogFlags(CLI::App& command, DialogFlags& flags) {
  command.add_option("--style", flags.style, "Table style: 0 to 34, or a name such as TStyleHeader2")
      ->type_name("STYLE");
  command
      .add_option("--mode", flags.mode,
                  "Table to text: two-paragraphs, paragraph, tabs, commas, other; text to table: paragraphs, "
                  "tabs, commas, other")
      ->type_name("MODE");
  command.add_option("--separator", flags.separator, "What separates cells in the mode other")
      ->type_name("TEXT");
  command.add_option("--columns", flags.columns, "Text to table by paragraphs: columns")
      ->type_name("N")
      ->check(CLI::PositiveNumber);
  command
      .add_option("--rows", flags.rows,
                  "Text to table by paragraphs: rows, instead of as many as the text fills")
      ->type_name("N")
      ->check(CLI::PositiveNumber);
  command.add_option("--phonetic", flags.phonetic, "Phonetics: the transcription, see `quill phonetics`")
      ->type_name("TEXT");
}

bool HasAny(const DialogFlags& flags) {
  return flags.style || flags.mode || flags.separator || flags.columns || flags.rows || flags.phonetic;
}

void AnswerDialog(platform::recording::Recording& desktop, const DialogFlags& flags, std::int64_t number,
                  const std::optional<std::string>& copiedText) {
  const bool hasModes = number == kTable2Text || number == kText2Table;
  Refuse(flags.style && number != kTableStyle, "--style", number);
  Refuse(flags.mode && !hasModes, "--mode", number);
  Refuse(flags.separator && !hasModes, "--separator", number);
  Refuse(flags.columns && number != kText2Table, "--columns", number);
  Refuse(flags.rows && number != kText2Table, "--rows", number);
  Refuse(flags.phonetic && number != kPhonetics, "--phonetic", number);
  if (number == kPhonetics) {
    if (!flags.phonetic) throw Stop(kWrongCall, "give --phonetic TEXT, which `quill phonetics` finds");
    desktop.AnswerDialog<shell::PhoneticsRequest>(shell::PhoneticChoice{{}, *flags.phonetic});
  } else if (number == kTableStyle) {
    if (!flags.style) throw Stop(kWrongCall, "give --style STYLE (0 to 34)");
    desktop.AnswerDialog<shell::TableStyleRequest>(StyleOf(*flags.style));
  } else if (number == kTable2Text) {
    desktop.AnswerDialog<shell::Table2TextRequest>(shell::TableTextChoice{
        static_cast<tools::TableTextMode>(ModeOf(flags, kTableTextModes)), flags.separator.value_or("")});
  } else if (number == kText2Table) {
    desktop.AnswerDialog<shell::Text2TableRequest>(TextTable(flags, copiedText));
  }
}

}  // namespace quill::cli
