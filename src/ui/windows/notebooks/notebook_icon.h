#pragma once
#include <QIcon>
#include <string_view>

namespace quill::ui {

/// One of the icons "notebookDefault", "notebook" and "notebookDeleted". They are seen on light and on dark
/// grounds. GUI thread.
QIcon NotebookIconOf(std::string_view name);

}  // namespace quill::ui
