#pragma once
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "tools/picture_list.h"

namespace quill::tools {

/// One row for each picture, or all pictures in one row.
enum class ImageLayout { Vertical, Horizontal };
enum class ImageNames { Hidden, Shown };

struct ImageTableStyle {
  ImageLayout layout = ImageLayout::Vertical;
  ImageNames names = ImageNames::Shown;
};

/// One picture of a table.
struct ImageEntry {
  std::string path;
  std::string name;     ///< what stands beside or below the picture, as it is
  std::string dataUri;  ///< "data:image/png;base64,…"
};

/// The document that inserts the pictures as a table, in the order of the list; "" for an empty list.
/// Names and addresses go in unescaped. O(result).
std::string ImageTableHtml(std::span<const ImageEntry> entries, ImageTableStyle style);

/// A file as a list shows it: its name and its address with the bytes in Base64; the media type is
/// "image/" and the file's extension as it is written. Fails with the reason when the file is none, is
/// larger than `limit` bytes or cannot be read.
Result<ImageEntry, SkipReason> ReadImageEntry(const std::string& path, std::uintmax_t limit = UINTMAX_MAX);

/// What fits into a page that is still of use.
struct ImageTableLimits {
  std::uintmax_t file = 256u << 20;    ///< bytes of one picture
  std::uintmax_t total = 1024u << 20;  ///< bytes of all
};

/// Told how many of all pictures are done, before each and at the end; false ends the work.
using ImageProgress = std::function<bool(std::size_t done, std::size_t total)>;

struct ImageTableBuild {
  std::string html;  ///< "" when no picture could be read or the work was ended
  std::size_t pictures = 0;
  std::vector<SkippedPath> skipped;  ///< left out of the table
  bool isCancelled = false;
};

/// Reads the files and makes their table, one file in memory at a time beside the result. A file that
/// cannot be read, or would go beyond a limit, is left out and named. O(bytes).
ImageTableBuild BuildImageTable(std::span<const std::string> paths, ImageTableStyle style,
                                const ImageProgress& progress = {}, const ImageTableLimits& limits = {});

}  // namespace quill::tools
