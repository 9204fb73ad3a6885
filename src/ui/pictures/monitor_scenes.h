#pragma once
#include <vector>

#include "ui/pictures/scenes.h"

namespace quill::ui {

/// The windows of the number of pages, with a year of a history.
std::vector<Scene> MonitorScenes();

}  // namespace quill::ui
