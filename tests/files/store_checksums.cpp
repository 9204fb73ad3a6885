#include "store_checksums.h"

#include <cmath>

namespace quill::test {

std::uint32_t Crc32c(std::string_view bytes) {
  std::uint32_t rest = 0xFFFFFFFF;
  for (const unsigned char byte : bytes)
    for (int bit = 0; bit < 8; ++bit) {
      const bool divides = ((byte >> bit & 1) != 0) != (rest >> 31 != 0);
      rest = rest << 1 ^ (divides ? 0x1EDC6F41U : 0);
    }
  std::uint32_t mirrored = 0;
  for (int bit = 0; bit < 32; ++bit) mirrored |= (rest >> bit & 1) << (31 - bit);
  return ~mirrored;
}

std::string Md5Digest(std::string_view bytes) {
  const int turns[] = {7, 12, 17, 22, 5, 9, 14, 20, 4, 11, 16, 23, 6, 10, 15, 21};
  std::uint32_t sum[] = {0x67452301, 0xefcdab89, 0x98badcfe, 0x10325476};
  std::string all(bytes);
  all += '\x80';
  while (all.size() % 64 != 56) all += '\0';
  for (int i = 0; i < 8; ++i) all += static_cast<char>(std::uint64_t{bytes.size()} * 8 >> (8 * i));
  for (std::size_t block = 0; block < all.size(); block += 64) {
    std::uint32_t a = sum[0], b = sum[1], c = sum[2], d = sum[3];
    for (unsigned i = 0; i < 64; ++i) {
      std::uint32_t f = c ^ (b | ~d), word = 7 * i % 16;
      if (i < 16)
        f = (b & c) | (~b & d), word = i;
      else if (i < 32)
        f = (b & d) | (c & ~d), word = (5 * i + 1) % 16;
      else if (i < 48)
        f = b ^ c ^ d, word = (3 * i + 5) % 16;
      f += a + static_cast<std::uint32_t>(std::floor(4294967296.0 * std::fabs(std::sin(i + 1.0))));
      for (unsigned k = 0; k < 4; ++k)
        f += static_cast<std::uint32_t>(static_cast<unsigned char>(all[block + word * 4 + k])) << (8 * k);
      const int turn = turns[i / 16 * 4 + i % 4];
      a = d, d = c, c = b, b += f << turn | f >> (32 - turn);
    }
    sum[0] += a, sum[1] += b, sum[2] += c, sum[3] += d;
  }
  std::string digest;
  for (int i = 0; i < 16; ++i) digest += static_cast<char>(sum[i / 4] >> (8 * (i % 4)));
  return digest;
}

}  // namespace quill::test
