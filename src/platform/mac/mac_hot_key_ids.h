#pragma once
#include <cstdint>
#include <optional>
#include <span>

#include "platform/hot_keys.h"

namespace quill::platform::mac {

/// The identifier under which a key is registered with Carbon: with Control, Option and Shift the virtual key
/// code alone (D is 2), with other modifiers these in the upper half, so that no two combinations share one.
std::uint32_t CarbonHotKeyId(const KeyCombination& keys);

/// The identifier of the key among `keys` that Carbon has reported; nothing when it is none of them.
std::optional<std::uint32_t> ReportedKey(std::span<const HotKey> keys, std::uint32_t carbonId);

/// What Carbon's answer to a registration means. The numbers are those of CarbonEvents.h.
HotKeyResult RegistrationResult(std::uint32_t identifier, std::int32_t status);

}  // namespace quill::platform::mac
