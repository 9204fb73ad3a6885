#pragma once
#include <QIcon>

namespace quill::ui {

/// The program's icon, a quill, drawn as a path so that it is crisp at every size. `onDark` is the form for
/// a dark menu bar.
QIcon QuillIcon(bool onDark);

}  // namespace quill::ui
