#pragma once

namespace quill::shell {

struct CommandContext;
struct CommandRow;

// Handlers of the command table for the content tools that are no numbered transforms. Command thread.

/// Asks for the patterns of inserted dates and times, and saves them.
void DateTimeFormat(CommandContext& context, const CommandRow& row);

/// Asks for a day, and inserts the calendar of its month (21) or of its year (22).
void CalendarOfChoice(CommandContext& context, const CommandRow& row);

/// Asks for pictures, and inserts them as a table. Pictures that cannot be read are left out and named.
void ImageTable(CommandContext& context, const CommandRow& row);

/// Shows the text that was recognised in the selection's first picture.
void ImageOCRText(CommandContext& context, const CommandRow& row);

}  // namespace quill::shell
