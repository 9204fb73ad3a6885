#pragma once
#include <cstdint>

namespace quill::shell {

struct TransformContext;

// The commands on tables and their kin. Those that shall paste over the selection return 1.

/// Offers each table of the selection for restyling until one is restyled (`tools/table_style.h`), and
/// remembers the style. 1 when one was. `msgLoadTableError` when there is no table at all.
std::int64_t ChangeTableStyle(TransformContext& context);

/// Leaves the text of the selection's first table on the clipboard, in the form the user chooses; remembers
/// the choice. 0. `msgLoadTableError` when there is no table.
std::int64_t Table2Text(TransformContext& context);

/// Makes a table of the selection's plain text as the user wants it, and pastes it. 0.
std::int64_t Text2Table(TransformContext& context);

/// Shows the figures of the selection (command 10) or the size of its first table (command 16). 0.
std::int64_t WordCount(TransformContext& context);

}  // namespace quill::shell
