#pragma once
#include <QIcon>
#include <string_view>

namespace quill::ui {

/// An icon in front of the rows of lists, by the name of its file in resources/icons. They are seen on light
/// and on dark grounds. GUI thread.
QIcon ListIcon(std::string_view name);

}  // namespace quill::ui
