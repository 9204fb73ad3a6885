#include "practice/page_file.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <random>
#include <utility>

namespace quill::practice {
namespace {

constexpr std::size_t kLongestName = 120;
constexpr std::string_view kUntitled = "Untitled page";
constexpr std::string_view kIdMeta = "<meta name=\"quill-page-id\" content=\"";
constexpr std::string_view kOrderMeta = "<meta name=\"quill-page-order\" content=\"";

constexpr std::pair<char, std::string_view> kEscapes[] = {
    {'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'"', "&quot;"}};

std::string Escaped(std::string_view text) {
  std::string result;
  for (const char c : text) {
    const auto* const escape = std::find_if(std::begin(kEscapes), std::end(kEscapes),
                                            [c](const auto& entry) { return entry.first == c; });
    escape == std::end(kEscapes) ? void(result += c) : void(result += escape->second);
  }
  return result;
}

std::string Unescaped(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    const auto* const escape =
        std::find_if(std::begin(kEscapes), std::end(kEscapes),
                     [text](const auto& entry) { return text.starts_with(entry.second); });
    const bool plain = escape == std::end(kEscapes);
    result += plain ? text.front() : escape->first;
    text.remove_prefix(plain ? 1 : escape->second.size());
  }
  return result;
}

/// The text between two marks; empty when one is missing.
std::string_view Between(std::string_view text, std::string_view start, std::string_view end) {
  const std::size_t from = text.find(start);
  if (from == std::string_view::npos) return {};
  text.remove_prefix(from + start.size());
  const std::size_t to = text.find(end);
  return to == std::string_view::npos ? std::string_view{} : text.substr(0, to);
}

bool IsPageId(std::string_view id) {
  constexpr std::string_view kForm = "{xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx}";
  if (id.size() != kForm.size()) return false;
  for (std::size_t i = 0; i < id.size(); ++i) {
    const bool hex = (id[i] >= '0' && id[i] <= '9') || (id[i] >= 'A' && id[i] <= 'F');
    if (kForm[i] == 'x' ? !hex : id[i] != kForm[i]) return false;
  }
  return true;
}

bool IsControl(char c) {
  return static_cast<unsigned char>(c) < 0x20 || c == 0x7f;
}

}  // namespace

std::string PageFileText(const Page& page) {
  std::string text = "<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n";
  text.append(kIdMeta).append(page.id).append("\">\n");
  text.append(kOrderMeta).append(std::to_string(page.order)).append("\">\n");
  text.append("<title>").append(Escaped(page.title)).append("</title>\n</head>\n<body>\n");
  text.append(page.body).append("\n</body>\n</html>\n");
  return text;
}

Result<Page> ParsePageFile(std::string_view text) {
  constexpr std::string_view kBody = "<body>";
  const std::size_t body = text.find(kBody);
  const std::size_t end = text.rfind("</body>");
  if (body == std::string_view::npos || end == std::string_view::npos || end < body) {
    return Failure{std::string("the page has no body")};
  }
  const std::string_view head = text.substr(0, body);
  Page page;
  page.title = Unescaped(Between(head, "<title>", "</title>"));
  const std::string_view id = Between(head, kIdMeta, "\"");
  if (IsPageId(id)) page.id = id;
  const std::string_view order = Between(head, kOrderMeta, "\"");
  std::from_chars(order.data(), order.data() + order.size(), page.order);
  std::string_view content = text.substr(body + kBody.size(), end - body - kBody.size());
  if (content.starts_with('\n')) content.remove_prefix(1);
  if (content.ends_with('\n')) content.remove_suffix(1);
  page.body = content;
  return page;
}

std::string NewPageId() {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::random_device random;
  std::uniform_int_distribution<int> digit(0, 15);
  std::string id = "{xxxxxxxx-xxxx-4xxx-8xxx-xxxxxxxxxxxx}";
  for (char& c : id) {
    if (c == 'x') c = kDigits[digit(random)];
  }
  return id;
}

bool IsSafeName(std::string_view name) {
  if (name.empty() || name.size() > kLongestName || name.front() == '.') return false;
  return name.find_first_of("/\\") == std::string_view::npos &&
         std::none_of(name.begin(), name.end(), IsControl);
}

std::string FileNameForTitle(std::string_view title) {
  std::string name;
  for (const char c : title) {
    const bool bad = IsControl(c) || std::string_view("/\\:*?\"<>|").find(c) != std::string_view::npos;
    if (name.empty() && (c == '.' || c == ' ')) continue;
    name += bad ? '-' : c;
  }
  if (name.size() > kLongestName - 20) {  // room for a number and the extension
    name.resize(kLongestName - 20);
    while (!name.empty() && (static_cast<unsigned char>(name.back()) & 0xC0) == 0x80) name.pop_back();
    if (!name.empty() && static_cast<unsigned char>(name.back()) >= 0xC0) name.pop_back();
  }
  while (!name.empty() && name.back() == ' ') name.pop_back();
  return name.empty() ? std::string(kUntitled) : name;
}

}  // namespace quill::practice
