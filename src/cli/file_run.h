#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "cli/dialog_answers.h"
#include "platform/clock.h"
#include "platform/recording/recording.h"
#include "shell/onenote_main.h"
#include "tools/word_count.h"

namespace quill::cli {

/// What `run` works on when it is not the live selection.
struct FileInput {
  std::string html;                  ///< a whole pasteboard document
  std::optional<std::string> text;   ///< its plain-text companion
  std::optional<std::string> title;  ///< the page's title
  std::optional<std::string> file;   ///< the answer to a save panel
  DialogFlags dialog;                ///< the answer to a dialog
};

/// What a command did, for printing.
struct FileOutcome {
  std::optional<std::int64_t> result;
  std::optional<platform::recording::Paste> paste;
  std::optional<std::string> clipboardText;
  std::vector<tools::CountRow> figures;  ///< what a window of figures showed
  std::vector<std::string> messages;
  bool missedSavePath = false;  ///< the command asked where to save and had no answer
};

/// A numbered command with its arguments.
struct FileCommand {
  std::int64_t number;
  std::int64_t int1 = 0;
  std::int64_t int2 = 0;
  std::string_view str3 = {};
};

/// Runs one numbered command on files, in memory, with this user's settings. Stops with `kWrongCall` for a
/// number that no command has, and as `AnswerDialog` does. What a dialog would remember is not saved.
FileOutcome RunOnFile(const Call& call, const FileCommand& command, FileInput input,
                      const platform::Clock& clock);

/// What goes to standard output for a paste, a clipboard result or figures; `bareFragment` leaves the
/// document around the fragment out.
std::string PrintedResult(const Call& call, const FileOutcome& outcome, bool bareFragment);

}  // namespace quill::cli
