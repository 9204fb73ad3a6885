#pragma once
#include <vector>

#include "ui/pictures/scenes.h"

namespace quill::ui {

/// The windows that list headings and notebooks.
std::vector<Scene> ListScenes();

}  // namespace quill::ui
