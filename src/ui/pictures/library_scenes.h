#pragma once
#include <vector>

#include "ui/pictures/scenes.h"

namespace quill::ui {

/// The windows of favourites and templates.
std::vector<Scene> LibraryScenes();

}  // namespace quill::ui
