#pragma once
#include <QByteArray>

namespace quill::ui {

/// What a picture file holds, told by its first bytes and never by its name.
enum class PictureFormat { Unknown, Png, Jpeg, Gif, Bmp, Tiff, WebP, Svg };

PictureFormat FormatOf(const QByteArray& bytes);

/// The name under which Qt knows the format ("png"); empty for `Unknown`.
QByteArray QtFormatName(PictureFormat format);

/// False when the file is shorter than it says itself. Qt's readers draw what is there of a cut JPEG, GIF or
/// BMP and report success; for the other formats they fail by themselves, and this says true. O(bytes).
bool IsWhole(const QByteArray& bytes, PictureFormat format);

}  // namespace quill::ui
