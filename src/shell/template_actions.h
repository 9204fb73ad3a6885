#pragma once
#include <cstdint>
#include <string_view>

namespace quill::shell {

struct CommandContext;
struct CommandRow;
struct TransformContext;

// Templates: documents that were saved from a selection, to be inserted again and again. Command thread.

/// Asks for a name and saves the selection under it, with its pictures inside; head and tail are those of the
/// copy. A name that cannot be one is told, and asked for again. Returns 0, so that nothing is pasted.
std::int64_t SaveAsTemplate(TransformContext& context);

/// Shows the window of the templates and does what it wishes until it is closed. With an argument, the number
/// of a template's name (`files::NumberOfName`), that template is inserted without a window.
void Template(CommandContext& context, const CommandRow& row);

/// Inserts a template at the caret, its date placeholders filled. What cannot be read is told.
void InsertTemplate(CommandContext& context, std::string_view name);

}  // namespace quill::shell
