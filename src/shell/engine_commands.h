#pragma once
#include <cstdint>

namespace quill::shell {

struct CommandContext;
struct CommandRow;
struct TransformContext;

/// Asks for code and how it shall look, remembers that, and inserts the coloured code.
void SyntaxHighlight(CommandContext& context, const CommandRow& row);

/// Asks for a formula and inserts it as an equation or a picture.
void LaTeXEquation(CommandContext& context, const CommandRow& row);

/// Asks for the transcription of the selection's first word and puts it behind (10002). Positive when the
/// fragment changed; "Xml error!" when it cannot be read.
std::int64_t InsertPhonetics(TransformContext& context);

}  // namespace quill::shell
