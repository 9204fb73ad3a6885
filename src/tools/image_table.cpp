#include "tools/image_table.h"

#include <filesystem>
#include <utility>

#include "base/atomic_file.h"
#include "content/base64.h"
#include "content/text_between.h"

namespace quill::tools {
namespace {

namespace fs = std::filesystem;

/// Writes the table while the pictures come in; the row of names of the horizontal layout waits beside it.
class TableWriter {
 public:
  explicit TableWriter(ImageTableStyle style) : m_style(style) {
    m_html.append(content::kBuiltHead).append("<table>");
    if (IsHorizontal()) m_html += "<tr>";
  }

  /// Makes room for so many bytes at once, instead of copying everything each time it runs out.
  void Reserve(std::size_t size) { m_html.reserve(m_html.size() + size); }

  /// Adds a picture whose address consists of two pieces.
  void Add(std::string_view name, std::string_view addressBegin, std::string_view addressEnd) {
    ++m_count;
    if (IsHorizontal()) {
      m_html.append("<td><img width='480' src='").append(addressBegin).append(addressEnd).append("'/></td>");
      m_names.append("<td align='center'>").append(name).append("</td>");
      return;
    }
    m_html.append("<tr><td><img src=\"").append(addressBegin).append(addressEnd).append("\"></td>");
    if (HasNames()) m_html.append("<td>").append(name).append("</td>");
    m_html += "</tr>";
  }

  std::size_t count() const { return m_count; }

  std::string Finish() && {
    if (m_count == 0) return {};
    if (IsHorizontal()) {
      m_html += "</tr>";
      if (HasNames()) m_html.append("<tr>").append(m_names).append("</tr>");
    }
    m_html.append("</table>").append(content::kBuiltTail);
    return std::move(m_html);
  }

 private:
  bool IsHorizontal() const { return m_style.layout == ImageLayout::Horizontal; }
  bool HasNames() const { return m_style.names == ImageNames::Shown; }

  ImageTableStyle m_style;
  std::string m_html;
  std::string m_names;
  std::size_t m_count = 0;
};

constexpr std::size_t kMarkupSize = 200;

std::string AddressBegin(const fs::path& file) {
  std::string extension = file.extension().string();
  if (!extension.empty()) extension.erase(0, 1);
  return "data:image/" + extension + ";base64,";
}

/// The size of a regular file, or why it is none.
Result<std::uintmax_t, SkipReason> SizeOf(const fs::path& file) {
  std::error_code error;
  const fs::file_status status = fs::status(file, error);
  if (status.type() == fs::file_type::not_found) return Failure{SkipReason::Missing};
  if (error) return Failure{SkipReason::Unreadable};
  if (!fs::is_regular_file(status)) return Failure{SkipReason::NotAFile};
  const std::uintmax_t size = fs::file_size(file, error);
  if (error) return Failure{SkipReason::Unreadable};
  return size;
}

/// The bytes of a file in Base64, or why there are none.
Result<std::string, SkipReason> ReadBase64(const fs::path& file, std::uintmax_t limit) {
  const auto size = SizeOf(file);
  if (!size.ok()) return Failure{size.error()};
  if (*size > limit) return Failure{SkipReason::TooLarge};
  const Result<std::string> bytes = ReadFile(file, limit);
  if (!bytes.ok()) return Failure{SkipReason::Unreadable};
  return content::EncodeBase64(*bytes);
}

constexpr std::uintmax_t Base64Size(std::uintmax_t bytes) {
  return (bytes + 2) / 3 * 4;
}

/// About how long the table of these files gets, within the limits.
std::size_t ExpectedSize(std::span<const std::string> paths, const ImageTableLimits& limits) {
  std::uintmax_t total = 0;
  for (const std::string& path : paths) {
    const auto size = SizeOf(path);
    if (size.ok() && *size <= limits.file && *size <= limits.total - total) total += *size;
  }
  return static_cast<std::size_t>(Base64Size(total)) + paths.size() * kMarkupSize;
}

}  // namespace

std::string ImageTableHtml(std::span<const ImageEntry> entries, ImageTableStyle style) {
  TableWriter table(style);
  std::size_t size = 0;
  for (const ImageEntry& entry : entries) size += entry.dataUri.size() + kMarkupSize;
  table.Reserve(size);
  for (const ImageEntry& entry : entries) table.Add(entry.name, entry.dataUri, {});
  return std::move(table).Finish();
}

Result<ImageEntry, SkipReason> ReadImageEntry(const std::string& path, std::uintmax_t limit) {
  const fs::path file(path);
  const auto base64 = ReadBase64(file, limit);
  if (!base64.ok()) return Failure{base64.error()};
  return ImageEntry{path, file.filename().string(), AddressBegin(file) + *base64};
}

ImageTableBuild BuildImageTable(std::span<const std::string> paths, ImageTableStyle style,
                                const ImageProgress& progress, const ImageTableLimits& limits) {
  ImageTableBuild build;
  TableWriter table(style);
  table.Reserve(ExpectedSize(paths, limits));
  std::uintmax_t left = limits.total;
  for (std::size_t i = 0; i < paths.size(); ++i) {
    if (progress && !progress(i, paths.size())) {
      build.isCancelled = true;
      return build;
    }
    const fs::path file(paths[i]);
    const auto base64 = ReadBase64(file, std::min(limits.file, left));
    if (!base64.ok()) {
      build.skipped.push_back({paths[i], base64.error()});
      continue;
    }
    left -= std::min<std::uintmax_t>(left, base64->size() / 4 * 3);
    table.Add(file.filename().string(), AddressBegin(file), *base64);
  }
  if (progress && !progress(paths.size(), paths.size())) {
    build.isCancelled = true;
    return build;
  }
  build.pictures = table.count();
  build.html = std::move(table).Finish();
  return build;
}

}  // namespace quill::tools
