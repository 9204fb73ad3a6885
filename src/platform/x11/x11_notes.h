#pragma once
#include <functional>
#include <string_view>

namespace quill::platform::x11 {

/// Where the backend writes down what it waited for and what it saw. Never page content.
class X11Notes {
 public:
  void SendTo(std::function<void(std::string_view)> sink) { m_sink = std::move(sink); }
  void Add(std::string_view line) const {
    if (m_sink) m_sink(line);
  }

 private:
  std::function<void(std::string_view)> m_sink;
};

}  // namespace quill::platform::x11
