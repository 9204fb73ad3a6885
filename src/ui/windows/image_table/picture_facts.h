#pragma once
#include <QImage>
#include <QSize>
#include <cstdint>
#include <optional>
#include <string>

namespace quill::ui {

/// What a list tells about a picture file.
struct PictureFacts {
  QImage thumbnail;                     ///< upright; null when none can be made
  QSize size;                           ///< pixels of the upright picture; empty when unknown
  std::optional<std::uintmax_t> bytes;  ///< nothing when the file cannot be read
};

/// Reads a PNG, JPEG, GIF (first frame) or BMP file, told by its first bytes, as a thumbnail that fits into a
/// square of `edge` pixels; smaller pictures stay as they are. Takes memory for 40 megapixels at most: what
/// would need more gets no thumbnail. Any thread.
PictureFacts ReadPictureFacts(const std::string& path, int edge);

}  // namespace quill::ui
