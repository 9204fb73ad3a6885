#include "online/protected_ampersands.h"

#include "content/find_text.h"

namespace quill::online {
namespace {

constexpr std::string_view kNoBreakSpace = "\xC2\xA0";

}  // namespace

std::string ProtectAmpersands(std::string_view text) {
  return content::ReplaceAll(text, "&", kNoBreakSpace);
}

std::string RestoreAmpersands(std::string_view text) {
  return content::ReplaceAll(text, kNoBreakSpace, "&");
}

}  // namespace quill::online
