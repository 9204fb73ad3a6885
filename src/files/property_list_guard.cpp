#include "files/property_list_guard.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <unordered_map>

namespace quill::files {
namespace {

Failure<std::string> TooDeep() {
  return Failure{std::string("is nested too deeply for a property list")};
}

Failure<std::string> NotAList() {
  return Failure{std::string("is not a property list")};
}

/// The parts of an XML text that hold no tags: what begins with `open` ends with `close`.
struct Skipped {
  std::string_view open;
  std::string_view close;
};
constexpr Skipped kSkipped[] = {{"<!--", "-->"}, {"<![CDATA[", "]]>"}, {"<?", "?>"}};

/// What a tag (the text between "<" and ">") adds to the depth.
int DepthOfTag(std::string_view tag) {
  const bool closing = tag.starts_with('/');
  if (closing) tag.remove_prefix(1);
  const bool empty = tag.ends_with('/');
  const std::string_view name = tag.substr(0, tag.find_first_of(" \t\r\n/"));
  if ((name != "dict" && name != "array") || empty) return 0;
  return closing ? -1 : 1;
}

/// The form that tags of property lists have; only the document type and the root have quoted values.
bool IsPlainTag(std::string_view tag) {
  if (tag.find_first_of("<[") != std::string_view::npos) return false;
  if (tag.starts_with("!DOCTYPE") || tag.starts_with("plist"))
    return std::count(tag.begin(), tag.end(), '"') % 2 == 0;
  return tag.find_first_of("\"'!") == std::string_view::npos;
}

/// A binary property list: a table of objects that name each other by number.
class BinaryScan {
 public:
  explicit BinaryScan(std::string_view bytes) : m_bytes(bytes) {}

  Status<> Check() {
    constexpr std::size_t kHeader = 8;
    constexpr std::size_t kTrailer = 32;
    if (m_bytes.size() < kHeader + kTrailer) return NotAList();
    const std::size_t trailer = m_bytes.size() - kTrailer;
    m_offsetSize = static_cast<unsigned char>(m_bytes[trailer + 6]);
    m_refSize = static_cast<unsigned char>(m_bytes[trailer + 7]);
    m_count = Number(trailer + 8, 8);
    const std::uint64_t root = Number(trailer + 16, 8);
    m_table = Number(trailer + 24, 8);
    if (m_offsetSize < 1 || m_offsetSize > 8 || m_refSize < 1 || m_refSize > 8) return NotAList();
    if (m_table > trailer || m_count > (trailer - m_table) / m_offsetSize) return NotAList();
    if (!Visit(root, 0)) return m_tooDeep ? Status<>(TooDeep()) : Status<>(NotAList());
    if (m_weights[root] > kHeaviest) return Failure{std::string("unfolds into too many values")};
    return Done();
  }

 private:
  static constexpr std::uint64_t kHeaviest = 64 << 20;
  static constexpr std::uint64_t kNode = 64;  // what a value costs besides its bytes
  static constexpr std::uint64_t kBeingVisited = UINT64_MAX;

  std::uint64_t Number(std::size_t at, std::size_t size) const {
    std::uint64_t number = 0;
    for (const char c : m_bytes.substr(at, size)) number = number << 8 | static_cast<unsigned char>(c);
    return number;
  }

  /// Where the object's contents begin, and how many elements it has; false when outside the file.
  bool Header(std::size_t& at, std::uint64_t& length) const {
    length = static_cast<unsigned char>(m_bytes[at]) & 0x0F;
    ++at;
    if (length != 0x0F) return true;
    if (at >= m_bytes.size()) return false;
    const std::size_t size = std::size_t{1} << (static_cast<unsigned char>(m_bytes[at]) & 0x0F);
    ++at;
    if (size > 8 || at + size > m_bytes.size()) return false;
    length = Number(at, size);
    at += size;
    return length <= m_bytes.size();
  }

  bool Visit(std::uint64_t object, int depth) {
    if (object >= m_count) return false;
    if (const auto known = m_weights.find(object); known != m_weights.end())
      return known->second != kBeingVisited && !(m_tooDeep = depth + m_heights[object] > kPropertyListDepth);
    const std::uint64_t offset = Number(m_table + object * m_offsetSize, m_offsetSize);
    if (offset >= m_table) return false;
    std::size_t at = offset;
    const int kind = static_cast<unsigned char>(m_bytes[at]) >> 4;
    std::uint64_t length = 0;
    if (kind >= 0x4 && kind != 0x8 && !Header(at, length)) return false;
    const bool container = kind >= 0xA;
    if (!container) {
      m_weights[object] = kNode + length * (kind == 0x6 ? 2 : 1);
      m_heights[object] = 0;
      return true;
    }
    return VisitElements(object, at, kind == 0xD ? length * 2 : length, depth);
  }

  bool VisitElements(std::uint64_t object, std::size_t at, std::uint64_t elements, int depth) {
    if (depth >= kPropertyListDepth) {
      m_tooDeep = true;
      return false;
    }
    if (elements > (m_bytes.size() - at) / m_refSize) return false;
    m_weights[object] = kBeingVisited;
    std::uint64_t weight = kNode;
    int height = 0;
    for (std::uint64_t i = 0; i < elements; ++i) {
      const std::uint64_t element = Number(at + i * m_refSize, m_refSize);
      if (!Visit(element, depth + 1)) return false;
      weight = std::min(weight + m_weights[element], kHeaviest + 1);
      height = std::max(height, m_heights[element]);
    }
    m_weights[object] = weight;
    m_heights[object] = height + 1;
    return true;
  }

  std::string_view m_bytes;
  std::size_t m_offsetSize = 0;
  std::size_t m_refSize = 0;
  std::uint64_t m_count = 0;
  std::uint64_t m_table = 0;
  bool m_tooDeep = false;
  std::unordered_map<std::uint64_t, std::uint64_t> m_weights;
  std::unordered_map<std::uint64_t, int> m_heights;
};

}  // namespace

Status<> CheckXmlPropertyList(std::string_view bytes) {
  if (bytes.find('\0') != std::string_view::npos) return NotAList();
  int depth = 0;
  std::size_t at = 0;
  while ((at = bytes.find('<', at)) != std::string_view::npos) {
    const std::string_view rest = bytes.substr(at);
    const auto* skipped = std::find_if(std::begin(kSkipped), std::end(kSkipped),
                                       [&](const Skipped& part) { return rest.starts_with(part.open); });
    if (skipped != std::end(kSkipped)) {
      const std::size_t close = rest.find(skipped->close, skipped->open.size());
      if (close == std::string_view::npos) return NotAList();
      at += close + skipped->close.size();
      continue;
    }
    const std::size_t close = rest.find('>');
    if (close == std::string_view::npos) return NotAList();
    const std::string_view tag = rest.substr(1, close - 1);
    if (!IsPlainTag(tag)) return NotAList();
    depth += DepthOfTag(tag);
    if (depth > kPropertyListDepth) return TooDeep();
    if (depth < 0) return NotAList();
    at += close + 1;
  }
  return depth == 0 ? Status<>(Done()) : Status<>(NotAList());
}

Status<> CheckBinaryPropertyList(std::string_view bytes) {
  return BinaryScan(bytes).Check();
}

}  // namespace quill::files
