#include "practice/guid_hash.h"

#include <fmt/format.h>

namespace quill::practice {
namespace {

using Wide = unsigned __int128;

constexpr Wide MakeWide(std::uint64_t high, std::uint64_t low) {
  return (Wide{high} << 64) | low;
}

constexpr Wide kStart = MakeWide(0x6c62272e07bb0142, 0x62b821756295c58d);
constexpr Wide kPrime = MakeWide(0x0000000001000000, 0x000000000000013b);

Wide Mixed(Wide hash, std::string_view bytes) {
  for (const char c : bytes) hash = (hash ^ static_cast<unsigned char>(c)) * kPrime;
  return hash;
}

}  // namespace

TextHash HashOf(std::initializer_list<std::string_view> texts) {
  Wide hash = kStart;
  for (const std::string_view text : texts)
    hash = Mixed(Mixed(hash, text), fmt::format("\n{}\n", text.size()));
  return {static_cast<std::uint64_t>(hash >> 64), static_cast<std::uint64_t>(hash)};
}

std::string GuidOf(std::initializer_list<std::string_view> texts) {
  const auto [high, low] = HashOf(texts);
  return fmt::format("{{{:08X}-{:04X}-8{:03X}-{:04X}-{:012X}}}", high >> 32, (high >> 16) & 0xFFFF,
                     high & 0xFFF, 0x8000 | ((low >> 48) & 0x3FFF), low & 0xFFFFFFFFFFFF);
}

}  // namespace quill::practice
