#pragma once
#include <cstdint>

#include "files/section_file/byte_writer.h"

namespace quill::section_file {

/// A piece of the file: where it begins and how long it is ([MS-ONESTORE] 2.2.4).
struct Chunk {
  std::uint64_t begin = 0;
  std::uint32_t size = 0;
};

/// What a reference holds that leads nowhere, "fcrNil".
inline constexpr Chunk kNowhere{~std::uint64_t{0}, 0};

/// FileChunkReference32 ([MS-ONESTORE] 2.2.4.1).
inline ByteWriter& PutReference32(ByteWriter& to, const Chunk& chunk) {
  return to.U32(static_cast<std::uint32_t>(chunk.begin)).U32(chunk.size);
}

/// FileChunkReference64x32 ([MS-ONESTORE] 2.2.4.4).
inline ByteWriter& PutReference64x32(ByteWriter& to, const Chunk& chunk) {
  return to.U64(chunk.begin).U32(chunk.size);
}

}  // namespace quill::section_file
