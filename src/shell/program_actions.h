#pragma once

namespace quill::shell {

struct CommandContext;
struct CommandRow;

// Actions that are done without a tool of their own. Command thread.

/// Flips the day that calendars begin with, and saves it.
void StartWithMonday(CommandContext& context, const CommandRow& row);

/// Pastes the program's own picture of a line at the caret.
void InsertHorizontalLine(CommandContext& context, const CommandRow& row);

/// Brings OneNote to the front, starting it when it is installed; `errorNotFoundOneNote` when it is not
/// there.
void RunOneNote(CommandContext& context, const CommandRow& row);

/// Shows OneNote's local cache in the file browser.
void ShowCacheFolder(CommandContext& context, const CommandRow& row);

/// Tells what to do there, then opens OneNote's page for the import of notebooks.
void ImportNotebook(CommandContext& context, const CommandRow& row);

/// Shows the HTML that a copy of the selection brings, as it is.
void TestCopyFromOneNote(CommandContext& context, const CommandRow& row);

/// Shows the names of the forms on the clipboard and its plain text, as they are.
void TestCopyFromClipboard(CommandContext& context, const CommandRow& row);

}  // namespace quill::shell
