#include "platform/mac/mac_flavours.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace quill::platform::mac {
namespace {

constexpr char kItemMark = '#';

constexpr std::array<std::string_view, 4> kPromises = {
    "com.apple.pasteboard.promised-file-url",
    "com.apple.pasteboard.promised-file-content-type",
    "com.apple.NSFilePromiseItemMetaData",
    "Apple files promise pasteboard type",
};

}  // namespace

std::string_view TypeOfFlavour(Flavour flavour) {
  switch (flavour) {
    case Flavour::Html:
      return "public.html";
    case Flavour::Text:
      return "public.utf8-plain-text";
    case Flavour::Png:
      return "public.png";
  }
  return "";
}

bool IsPromisedFile(std::string_view type) {
  return std::find(kPromises.begin(), kPromises.end(), type) != kPromises.end();
}

std::string SnapshotName(const ItemType& itemType) {
  return itemType.type + kItemMark + std::to_string(itemType.item);
}

std::optional<ItemType> ParseSnapshotName(std::string_view name) {
  const std::size_t mark = name.rfind(kItemMark);
  if (mark == std::string_view::npos || mark == 0) return std::nullopt;
  const char* const end = name.data() + name.size();
  ItemType parsed{0, std::string(name.substr(0, mark))};
  const auto [stop, error] = std::from_chars(name.data() + mark + 1, end, parsed.item);
  if (error != std::errc() || stop != end) return std::nullopt;
  return parsed;
}

}  // namespace quill::platform::mac
