#include "tools/recent_formulas.h"

#include <algorithm>

namespace quill::tools {
namespace {

constexpr char kBetween = '|';
constexpr std::string_view kDigits = "0123456789ABCDEF";

void AppendEscaped(std::string& out, std::string_view formula) {
  for (const char c : formula) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte > 0x20 && byte < 0x7f && c != '%' && c != kBetween) {
      out += c;
    } else {
      out += {'%', kDigits[byte >> 4], kDigits[byte & 15]};
    }
  }
}

std::string Unescaped(std::string_view text) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool hasCode = text[i] == '%' && i + 2 < text.size();
    const std::size_t high = hasCode ? kDigits.find(text[i + 1]) : kDigits.npos;
    const std::size_t low = hasCode ? kDigits.find(text[i + 2]) : kDigits.npos;
    if (high == kDigits.npos || low == kDigits.npos) {
      out += text[i];
    } else {
      out += static_cast<char>(high * 16 + low);
      i += 2;
    }
  }
  return out;
}

}  // namespace

RecentFormulas RecentFormulas::FromText(std::string_view text) {
  RecentFormulas recent;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(kBetween), text.size());
    std::string formula = Unescaped(text.substr(0, end));
    const bool isKnown = std::count(recent.m_items.begin(), recent.m_items.end(), formula) > 0;
    if (!formula.empty() && !isKnown && recent.m_items.size() < kMost) {
      recent.m_items.push_back(std::move(formula));
    }
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return recent;
}

void RecentFormulas::Add(std::string_view formula) {
  if (formula.empty() || formula.size() > kLongest) return;
  std::string added(formula);
  std::erase(m_items, added);
  m_items.insert(m_items.begin(), std::move(added));
  if (m_items.size() > kMost) m_items.pop_back();
}

std::string RecentFormulas::ToText() const {
  std::string text;
  for (const std::string& formula : m_items) {
    if (!text.empty()) text += kBetween;
    AppendEscaped(text, formula);
  }
  return text;
}

}  // namespace quill::tools
