#include "practice/service/html_text.h"

#include <fmt/format.h>

namespace quill::practice {
namespace {

constexpr std::string_view kStyle =
    ":root{color-scheme:light dark;font:16px/1.5 system-ui,sans-serif}"
    "body{max-width:24rem;margin:3rem auto;padding:0 1rem}h1{font-size:1.4rem}"
    "label{display:block;margin-top:1rem}"
    "input{display:block;box-sizing:border-box;width:100%;font:inherit;padding:.4rem;margin-top:.2rem}"
    "button{font:inherit;padding:.4rem 1.2rem;margin:1.2rem .6rem 0 0}";

bool IsUnreserved(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '.' ||
         c == '_' || c == '~';
}

}  // namespace

std::string EscapeHtml(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    switch (c) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      case '"':
        escaped += "&quot;";
        break;
      default:
        escaped += c;
    }
  }
  return escaped;
}

std::string SmallPage(std::string_view title, std::string_view content) {
  return fmt::format(
      "<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"utf-8\"><title>{0}</title>"
      "<meta name=\"viewport\" content=\"width=device-width\"><link rel=\"icon\" href=\"data:,\">"
      "<style>{1}</style></head><body><main><h1>{0}</h1>{2}</main></body></html>\n",
      EscapeHtml(title), kStyle, content);
}

std::string EscapeUrlPart(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    IsUnreserved(c) ? void(escaped += c)
                    : void(escaped += fmt::format("%{:02X}", static_cast<unsigned char>(c)));
  }
  return escaped;
}

}  // namespace quill::practice
