#pragma once
#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

namespace quill::content {

/// Appends many short pieces to a string, several times faster than std::string::append: room is made in
/// large steps and the string gets its real size when the sink goes.
class TextSink {
 public:
  /// `expected` is how much will be appended, roughly.
  TextSink(std::string& out, std::size_t expected) : m_out(out), m_size(out.size()) {
    m_out.resize(m_size + expected);
  }
  ~TextSink() { m_out.resize(m_size); }
  TextSink(const TextSink&) = delete;
  TextSink& operator=(const TextSink&) = delete;

  void Append(std::string_view text) {
    if (m_out.size() - m_size < text.size()) Grow(text.size());
    std::memcpy(m_out.data() + m_size, text.data(), text.size());
    m_size += text.size();
  }
  /// For short texts of unknown length, which are copied before they could have been measured.
  void AppendShort(const char* text) {
    char* at = m_out.data() + m_size;
    const char* const end = m_out.data() + m_out.size();
    while (at != end && *text != '\0') *at++ = *text++;
    m_size = static_cast<std::size_t>(at - m_out.data());
    if (*text != '\0') Append(std::string_view(text));
  }
  void Append(char c) {
    if (m_out.size() == m_size) Grow(1);
    m_out[m_size++] = c;
  }

 private:
  void Grow(std::size_t least) { m_out.resize(std::max(m_size + least, m_size + m_size / 2)); }

  std::string& m_out;
  std::size_t m_size;
};

}  // namespace quill::content
