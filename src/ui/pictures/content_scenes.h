#pragma once
#include <vector>

#include "ui/pictures/scenes.h"

namespace quill::ui {

/// The dialogs of the content tools.
std::vector<Scene> ContentScenes();

}  // namespace quill::ui
