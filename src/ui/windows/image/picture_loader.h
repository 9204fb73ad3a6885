#pragma once
#include <QByteArray>
#include <QImage>
#include <QObject>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"

namespace quill::ui {

/// A decoded picture with what is needed to draw it small quickly.
struct LoadedPicture {
  QImage image;  ///< the pixels as they are in the file, turned as its camera says
  /// Halves, quarters, … of the picture down to about a screen's size, smoothly scaled, in a format that is
  /// fast to draw. The first one has the picture's own size.
  std::vector<QImage> levels;
};

/// Why a file is not shown.
enum class PictureProblem {
  Unreadable,     ///< missing, a folder or device, or not to be read by this user
  TooManyBytes,   ///< more than `kMostPictureBytes`
  TooManyPixels,  ///< more than `kMostPicturePixels`
  NotAPicture,    ///< none of the formats that are known
  Damaged,        ///< begins like a picture, but is cut short or makes no sense
};

/// The key of the message about a problem; it takes the file's name.
std::string_view PictureProblemKey(PictureProblem problem);

inline constexpr qint64 kMostPictureBytes = qint64(200) << 20;
inline constexpr qint64 kMostPicturePixels = 100'000'000;

using PictureResult = Result<LoadedPicture, PictureProblem>;

/// Decodes PNG, JPEG, GIF (first frame), BMP, TIFF, WebP or SVG. The size is looked at before anything is
/// decoded. Any thread.
PictureResult DecodePicture(const QByteArray& bytes);

/// Reads and decodes a regular file, whatever its name. Any thread.
PictureResult LoadPicture(const std::filesystem::path& file);

/// As `LoadPicture` on another thread (a small file may hold a large picture); `done` is called on the GUI
/// thread, unless `receiver` is gone by then. GUI thread.
void LoadPictureFor(QObject* receiver, const std::filesystem::path& file,
                    std::function<void(PictureResult)> done);

}  // namespace quill::ui
