#pragma once
#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quill::tools {

/// The extensions of the pictures that a table takes, in lower case and without the dot.
std::span<const std::string_view> PictureExtensions();

/// Whether a file that was chosen by name is a picture: one of the extensions, in any case.
bool IsPictureName(std::string_view name);

/// Whether a file met in a folder is a picture: its name ends in a dot and one of the extensions, in lower
/// case. "IMG_1.JPG" is not.
bool IsPictureNameInFolder(std::string_view name);

/// Why a path is not in the list.
enum class SkipReason {
  Missing,     ///< nothing there, or a link to nothing
  Unreadable,  ///< a file or folder that may not be read
  NotAFile,    ///< a device, a pipe, a socket
  NotAPicture,
  TooLarge
};

struct SkippedPath {
  std::string path;
  SkipReason reason;
  bool operator==(const SkippedPath&) const = default;
};

struct PictureList {
  std::vector<std::string> paths;
  std::vector<SkippedPath> skipped;  ///< never the files of a folder that are no pictures
  bool isStopped = false;            ///< the walk was ended before its end; the rest is what it had found
};

/// Told how many pictures are found, before each entry that is looked at; false ends the walk.
using WalkProgress = std::function<bool(std::size_t found)>;

/// The pictures behind files and folders, in the order given. A folder is walked with all its subfolders,
/// hidden ones too, in the order in which the system lists them, links followed, each folder once. Regular
/// files only. O(entries).
PictureList ExpandPictures(std::span<const std::string> paths, const WalkProgress& progress = {});

}  // namespace quill::tools
