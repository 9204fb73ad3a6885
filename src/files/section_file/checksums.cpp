#include "files/section_file/checksums.h"

#include <bit>
#include <cstddef>

#include "files/section_file/byte_writer.h"

namespace quill::section_file {
namespace {

using Words = std::array<std::uint32_t, 4>;

constexpr std::uint32_t kReflectedPolynomial = 0x82F63B78;

constexpr std::array<std::uint32_t, 64> kSines = {
    0xD76AA478, 0xE8C7B756, 0x242070DB, 0xC1BDCEEE, 0xF57C0FAF, 0x4787C62A, 0xA8304613, 0xFD469501,
    0x698098D8, 0x8B44F7AF, 0xFFFF5BB1, 0x895CD7BE, 0x6B901122, 0xFD987193, 0xA679438E, 0x49B40821,
    0xF61E2562, 0xC040B340, 0x265E5A51, 0xE9B6C7AA, 0xD62F105D, 0x02441453, 0xD8A1E681, 0xE7D3FBC8,
    0x21E1CDE6, 0xC33707D6, 0xF4D50D87, 0x455A14ED, 0xA9E3E905, 0xFCEFA3F8, 0x676F02D9, 0x8D2A4C8A,
    0xFFFA3942, 0x8771F681, 0x6D9D6122, 0xFDE5380C, 0xA4BEEA44, 0x4BDECFA9, 0xF6BB4B60, 0xBEBFBC70,
    0x289B7EC6, 0xEAA127FA, 0xD4EF3085, 0x04881D05, 0xD9D4D039, 0xE6DB99E5, 0x1FA27CF8, 0xC4AC5665,
    0xF4292244, 0x432AFF97, 0xAB9423A7, 0xFC93A039, 0x655B59C3, 0x8F0CCC92, 0xFFEFF47D, 0x85845DD1,
    0x6FA87E4F, 0xFE2CE6E0, 0xA3014314, 0x4E0811A1, 0xF7537E82, 0xBD3AF235, 0x2AD7D2BB, 0xEB86D391};
constexpr int kTurns[4][4] = {{7, 12, 17, 22}, {5, 9, 14, 20}, {4, 11, 16, 23}, {6, 10, 15, 21}};

std::uint32_t WordAt(std::string_view block, std::size_t word) {
  std::uint32_t value = 0;
  for (std::size_t i = 4; i-- > 0;) value = value << 8 | static_cast<unsigned char>(block[word * 4 + i]);
  return value;
}

void AddBlock(Words& sum, std::string_view block) {
  auto [a, b, c, d] = sum;
  for (std::size_t i = 0; i < 64; ++i) {
    const std::size_t round = i / 16;
    const std::uint32_t mixed[] = {(b & c) | (~b & d), (d & b) | (~d & c), b ^ c ^ d, c ^ (b | ~d)};
    const std::size_t words[] = {i, 5 * i + 1, 3 * i + 5, 7 * i};
    const std::uint32_t turned =
        std::rotl(a + mixed[round] + kSines[i] + WordAt(block, words[round] % 16), kTurns[round][i % 4]);
    a = d;
    d = c;
    c = b;
    b += turned;
  }
  sum = {sum[0] + a, sum[1] + b, sum[2] + c, sum[3] + d};
}

}  // namespace

std::uint32_t Crc(std::string_view bytes) {
  std::uint32_t rest = 0xFFFFFFFF;
  for (const char c : bytes) {
    rest ^= static_cast<unsigned char>(c);
    for (int bit = 0; bit < 8; ++bit) rest = (rest & 1) != 0 ? rest >> 1 ^ kReflectedPolynomial : rest >> 1;
  }
  return ~rest;
}

std::array<std::uint8_t, 16> Md5(std::string_view bytes) {
  ByteWriter padded;
  padded.Put(bytes).U8(0x80).Zeros((119 - bytes.size() % 64) % 64).U64(bytes.size() * 8);
  Words sum = {0x67452301, 0xEFCDAB89, 0x98BADCFE, 0x10325476};
  const std::string_view all = padded.bytes();
  for (std::size_t at = 0; at < all.size(); at += 64) AddBlock(sum, all.substr(at, 64));
  std::array<std::uint8_t, 16> result{};
  for (std::size_t i = 0; i < 16; ++i) result[i] = static_cast<std::uint8_t>(sum[i / 4] >> (8 * (i % 4)));
  return result;
}

}  // namespace quill::section_file
