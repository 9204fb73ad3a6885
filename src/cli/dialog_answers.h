#pragma once
#include <cstdint>
#include <optional>
#include <string>

#include "platform/recording/recording.h"

namespace CLI {
class App;
}

namespace quill::cli {

/// What the flags of `quill run` answer to a command's dialog.
struct DialogFlags {
  std::optional<std::string> style;
  std::optional<std::string> mode;
  std::optional<std::string> separator;
  std::optional<std::int64_t> columns;
  std::optional<std::int64_t> rows;
  std::optional<std::string> phonetic;
};

/// Adds the flags to a subcommand. `flags` must outlive the parsing.
void AddDialogFlags(CLI::App& command, DialogFlags& flags);

/// True when any of them was given.
bool HasAny(const DialogFlags& flags);

/// Lets the recorded desktop answer the dialog of a numbered command; `copiedText` is the plain text that
/// lies beside the HTML. Stops with `kWrongCall`, naming the flag, when an answer is missing, makes no sense,
/// or belongs to another command.
void AnswerDialog(platform::recording::Recording& desktop, const DialogFlags& flags, std::int64_t number,
                  const std::optional<std::string>& copiedText);

}  // namespace quill::cli
