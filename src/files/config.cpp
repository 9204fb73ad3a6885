#include "files/config.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <type_traits>

#include "base/atomic_file.h"
#include "files/property_list.h"

namespace quill::files {
namespace {

namespace fs = std::filesystem;
using Value = PropertyList::Value;

std::string_view WithoutLeading(std::string_view text, std::string_view characters) {
  text.remove_prefix(std::min(text.find_first_not_of(characters), text.size()));
  return text;
}

/// The number at the beginning of a text: 0 when there is none, the nearest limit when it is too large.
std::int64_t LeadingInteger(std::string_view text) {
  text = WithoutLeading(text, " \t\r\n");
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  std::int64_t number = 0;
  const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (problem != std::errc::result_out_of_range) return number;
  return text.starts_with('-') ? std::numeric_limits<std::int64_t>::min()
                               : std::numeric_limits<std::int64_t>::max();
}

/// Y, y, T, t or a digit other than 0, after blanks, a sign and zeros.
bool SaysYes(std::string_view text) {
  text = WithoutLeading(text, " \t\r\n");
  if (text.starts_with('+') || text.starts_with('-')) text.remove_prefix(1);
  text = WithoutLeading(text, "0");
  return !text.empty() && std::string_view("YyTt123456789").find(text.front()) != std::string_view::npos;
}

std::int64_t Truncated(double value) {
  constexpr double kLimit = 9223372036854775808.0;  // 2^63
  if (std::isnan(value)) return 0;
  if (value >= kLimit) return std::numeric_limits<std::int64_t>::max();
  if (value < -kLimit) return std::numeric_limits<std::int64_t>::min();
  return static_cast<std::int64_t>(value);
}

/// Turns a stored number, truth value or text into a `T`; anything else is `otherwise`.
template <class T, class FromText>
T Converted(const Value& value, T otherwise, FromText fromText) {
  if (const auto* truth = std::get_if<bool>(&value)) return static_cast<T>(*truth);
  if (const auto* text = std::get_if<std::string>(&value)) return fromText(*text);
  if (const auto* number = std::get_if<std::int64_t>(&value)) {
    return std::is_same_v<T, bool> ? *number != 0 : static_cast<T>(*number);
  }
  if (const auto* real = std::get_if<double>(&value)) {
    return std::is_same_v<T, bool> ? *real != 0.0 : static_cast<T>(Truncated(*real));
  }
  return otherwise;
}

}  // namespace

struct MConfig::State {
  fs::path m_FileName;
  PropertyList m_Dict;
  std::string problem;

  void Load() {
    std::error_code error;
    if (!fs::exists(m_FileName, error)) return;
    if (!fs::is_regular_file(m_FileName, error)) {
      problem = fmt::format("{}: is not a regular file", m_FileName.string());
      return;
    }
    const Result<std::string> bytes = ReadFile(m_FileName, kPropertyListLimit);
    if (bytes.ok() && bytes->empty()) return;
    Result<PropertyList> list =
        bytes.ok() ? ParsePropertyList(*bytes) : Result<PropertyList>(Failure{bytes.error()});
    if (list.ok()) {
      m_Dict = std::move(*list);
    } else {
      problem = bytes.ok() ? fmt::format("{}: {}", m_FileName.string(), list.error()) : bytes.error();
    }
  }

  /// Renames the damaged file; the copy may hold tokens and is for the user alone.
  Status<> SetAside() const {
    const fs::path copy = DamagedCopy(m_FileName);
    std::error_code error;
    if (!fs::exists(fs::symlink_status(m_FileName, error))) return Done();
    fs::rename(m_FileName, copy, error);
    if (error) return Failure{fmt::format("{}: {}", copy.string(), error.message())};
    if (fs::is_regular_file(copy, error))
      fs::permissions(copy, fs::perms::owner_read | fs::perms::owner_write, error);
    return Done();
  }
};

MConfig::MConfig(fs::path file) : m_state(std::make_unique<State>()) {
  m_state->m_FileName = std::move(file);
  m_state->Load();
}

MConfig::~MConfig() = default;
MConfig::MConfig(MConfig&&) noexcept = default;
MConfig& MConfig::operator=(MConfig&&) noexcept = default;

const std::string& MConfig::Problem() const {
  return m_state->problem;
}

fs::path MConfig::DamagedCopy(const fs::path& file) {
  return fs::path(file.string() + ".bad");
}

std::string MConfig::ReadString(std::string_view key, std::string_view otherwise) const {
  Value value = m_state->m_Dict.Get(key);
  if (auto* text = std::get_if<std::string>(&value)) return std::move(*text);
  return std::string(otherwise);
}

bool MConfig::ReadBool(std::string_view key, bool otherwise) const {
  return Converted(m_state->m_Dict.Get(key), otherwise, SaysYes);
}

std::int64_t MConfig::ReadInt(std::string_view key, std::int64_t otherwise) const {
  return Converted(m_state->m_Dict.Get(key), otherwise, LeadingInteger);
}

StoredDate MConfig::ReadDate(std::string_view key, StoredDate otherwise) const {
  const Value value = m_state->m_Dict.Get(key);
  if (const auto* text = std::get_if<std::string>(&value)) return ParseStoredDate(*text);
  return otherwise;
}

void MConfig::WriteString(std::string_view key, std::string_view value) {
  m_state->m_Dict.SetText(key, value);
}

void MConfig::WriteBool(std::string_view key, bool value) {
  m_state->m_Dict.SetBool(key, value);
}

void MConfig::WriteInt(std::string_view key, std::int64_t value) {
  m_state->m_Dict.SetInteger(key, value);
}

void MConfig::WriteDate(std::string_view key, StoredDate value) {
  m_state->m_Dict.SetText(key, StoredDateText(value));
}

void MConfig::Remove(std::string_view key) {
  m_state->m_Dict.Remove(key);
}

std::vector<std::string> MConfig::Keys() const {
  return m_state->m_Dict.Keys();
}

Status<> MConfig::Save() {
  const fs::path& file = m_state->m_FileName;
  const Result<std::string> xml = m_state->m_Dict.ToXml();
  if (!xml.ok()) return Failure{fmt::format("{}: {}", file.string(), xml.error())};
  if (Damaged()) {
    const Status<> aside = m_state->SetAside();
    if (!aside.ok()) return aside;
  }
  Status<> written = WriteFileAtomically(file, *xml);
  std::error_code error;
  if (written.ok()) {
    m_state->problem.clear();
  } else if (Damaged()) {
    fs::rename(DamagedCopy(file), file, error);
  }
  return written;
}

}  // namespace quill::files
