#pragma once
#include <QByteArray>
#include <QImage>
#include <filesystem>
#include <string>

#include "base/result.h"

namespace quill::ui {

/// True when `WritePicture` knows the file's extension: png, jpg or jpeg in any case.
bool IsWritablePictureName(const std::filesystem::path& file);

/// Writes a picture in the format that the extension says. Whoever looks sees the old file or the whole new
/// one. What JPEG cannot show, transparency, becomes white. The failure is the system's reason. Any thread.
Status<> WritePicture(const QImage& image, const std::filesystem::path& file);

/// Writes a picture as PNG that only this user can read, never through a link. Any thread.
Status<> WritePrivatePng(const QImage& image, const std::filesystem::path& file);

}  // namespace quill::ui
