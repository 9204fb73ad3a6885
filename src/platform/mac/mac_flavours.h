#pragma once
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/pasteboard.h"

namespace quill::platform::mac {

/// The type identifier under which macOS keeps a form.
std::string_view TypeOfFlavour(Flavour flavour);

/// True for types that hold nothing yet: reading one makes its owner write files somewhere, so `Save`
/// leaves them alone.
bool IsPromisedFile(std::string_view type);

/// A pasteboard can hold several items, a snapshot is one list: in it, a type carries its item's number.
struct ItemType {
  std::size_t item;
  std::string type;
};
std::string SnapshotName(const ItemType& itemType);
/// The way back; nothing for a name that `SnapshotName` did not make.
std::optional<ItemType> ParseSnapshotName(std::string_view name);

}  // namespace quill::platform::mac
