#include "platform/mac/mac_hot_key_ids.h"

#include <string>

namespace quill::platform::mac {
namespace {

constexpr std::uint32_t kUsualModifiers = 0x1A00;       // Control, Option and Shift
constexpr std::uint32_t kOtherModifiers = 0x8000'0000;  // none at all are others, too

constexpr struct {
  std::int32_t status;
  HotKeyProblem problem;
} kAnswers[] = {{0, HotKeyProblem::None},
                {-9878, HotKeyProblem::Taken},       // eventHotKeyExistsErr
                {-9879, HotKeyProblem::NoSuchKey}};  // eventHotKeyInvalidErr

}  // namespace

std::uint32_t CarbonHotKeyId(const KeyCombination& keys) {
  const std::uint32_t modifiers = CarbonModifiers(keys);
  return (modifiers == kUsualModifiers ? 0 : kOtherModifiers | modifiers << 16) | CarbonKeyCode(keys);
}

std::optional<std::uint32_t> ReportedKey(std::span<const HotKey> keys, std::uint32_t carbonId) {
  for (const HotKey& key : keys) {
    if (CarbonHotKeyId(key.keys) == carbonId) return key.identifier;
  }
  return std::nullopt;
}

HotKeyResult RegistrationResult(std::uint32_t identifier, std::int32_t status) {
  for (const auto& answer : kAnswers) {
    if (answer.status == status) return {identifier, answer.problem};
  }
  return {identifier, HotKeyProblem::SystemError, "Carbon error " + std::to_string(status)};
}

}  // namespace quill::platform::mac
