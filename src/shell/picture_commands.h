#pragma once
#include <cstdint>

namespace quill::shell {

struct TransformContext;

// The two commands that hand a selected picture on: to the viewer (13), or to the program that the system has
// for it (14). Nothing in the page changes. What goes wrong is told in words.
//
// The picture is the first `img` of the selection: a local file ("file://…", percent escapes undone, read
// from the root folder), or bytes inside the source ("data:image/…"), which are saved as
// "QuillMenu.<subtype>" in the documents folder. Pictures elsewhere are not fetched.
//
// A page may come from anybody. Only regular files are taken, and what is handed to the system must carry the
// name of a picture, whatever the page calls it: the system chooses the program by the name.

/// Command 13: shows the picture in the viewer. Returns 0.
std::int64_t ImageCrop(TransformContext& context);

/// Command 14: opens the picture with the system's program for it. Returns 0.
std::int64_t OpenPicture(TransformContext& context);

/// The same two for a selection that is a picture and nothing else, so that the copy brought no HTML: the
/// pasteboard's picture is written to "quill.tif" in the folder for temporary files. The name is fixed, the
/// bytes are PNG.
void ImageCropViaImageFormat(TransformContext& context);
void OpenPictureViaImageFormat(TransformContext& context);

}  // namespace quill::shell
