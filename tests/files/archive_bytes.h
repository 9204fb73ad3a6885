#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quill::test {

/// Numbers as archives hold them, the low byte first.
inline void Put(std::string& out, std::uint64_t value, int bytes) {
  for (int i = 0; i < bytes; ++i) out += static_cast<char>(value >> (8 * i) & 0xFF);
}

inline std::uint32_t Crc32(std::string_view bytes) {
  std::uint32_t crc = ~0u;
  for (const char c : bytes) {
    crc ^= static_cast<unsigned char>(c);
    for (int bit = 0; bit < 8; ++bit) crc = crc >> 1 ^ (0xEDB88320u & (0u - (crc & 1)));
  }
  return ~crc;
}

struct ZipMember {
  std::string name;
  std::string bytes;
  unsigned mode = 0100644;  ///< 0120777: a link, whose bytes are where it leads
};

/// A zip file of uncompressed members with exactly these names, as no honest archiver would write them.
inline std::string ZipOf(const std::vector<ZipMember>& members) {
  constexpr std::uint64_t kDate = 0x5821'0000;  // 1 January 2024
  std::string files, directory;
  for (const ZipMember& member : members) {
    std::string common;
    Put(common, 20, 2), Put(common, 0, 4), Put(common, kDate, 4), Put(common, Crc32(member.bytes), 4);
    Put(common, member.bytes.size(), 4), Put(common, member.bytes.size(), 4);
    Put(common, member.name.size(), 2), Put(common, 0, 2);
    Put(directory, 0x02014b50, 4), Put(directory, 3 << 8 | 20, 2);
    directory += common;
    Put(directory, 0, 6), Put(directory, std::uint64_t(member.mode) << 16, 4),
        Put(directory, files.size(), 4);
    directory += member.name;
    Put(files, 0x04034b50, 4);
    files += common + member.name + member.bytes;
  }
  const std::size_t start = files.size();
  files += directory;
  Put(files, 0x06054b50, 4), Put(files, 0, 4), Put(files, members.size(), 2), Put(files, members.size(), 2);
  Put(files, directory.size(), 4), Put(files, start, 4), Put(files, 0, 2);
  return files;
}

/// A cabinet with one uncompressed member of this name.
inline std::string CabinetOf(std::string_view name, std::string_view bytes) {
  constexpr std::size_t kHeader = 36, kFolder = 8, kBlockHeader = 8;
  const std::size_t file = 16 + name.size() + 1;
  const std::size_t data = kHeader + kFolder + file;
  std::string out = "MSCF";
  Put(out, 0, 4), Put(out, data + kBlockHeader + bytes.size(), 4), Put(out, 0, 4),
      Put(out, kHeader + kFolder, 4);
  Put(out, 0, 4), Put(out, 0x0103, 2), Put(out, 1, 2), Put(out, 1, 2), Put(out, 0, 2), Put(out, 0, 4);
  Put(out, data, 4), Put(out, 1, 2), Put(out, 0, 2);  // one block, not compressed
  Put(out, bytes.size(), 4), Put(out, 0, 4), Put(out, 0, 2), Put(out, 0x5821, 2), Put(out, 0, 2),
      Put(out, 0x20, 2);
  out.append(name).append(1, '\0');
  Put(out, 0, 4), Put(out, bytes.size(), 2), Put(out, bytes.size(), 2);  // no check sum
  return out.append(bytes);
}

}  // namespace quill::test
