#pragma once
#include <cstdint>

namespace quill::shell {

struct TransformContext;

// The export commands. Each returns 0, so that nothing is pasted; a cancelled panel writes nothing; a file
// that cannot be written is told with its name and the system's reason.

/// Asks for a ".bin" file and writes the fragment as it was copied.
std::int64_t SaveDiagnostics(TransformContext& context);

/// Asks for a ".dat" file and writes the whole copied document without the fragment markers.
std::int64_t ExportLog(TransformContext& context);

/// Asks for a ".htm" file and writes head, document and tail. Pictures with "file:///" sources are copied
/// into a folder named after the file with "_files" added, and their sources point there.
std::int64_t SaveAsHtml(TransformContext& context);

/// Asks for a ".csv" file and writes the selection's first table (`tools/table_csv.h`); `msgLoadTableError`
/// when there is none.
std::int64_t SaveTableAsCSV(TransformContext& context);

/// Has PowerPoint run its macro on the copied selection, when PowerPoint is installed and the selection has a
/// first-level heading (`tools/slides.h`).
std::int64_t ConvertToPPT(TransformContext& context);

/// Has Word paste the copied selection into a new document, when Word is installed.
std::int64_t SaveAsWordDocument(TransformContext& context);

}  // namespace quill::shell
