#pragma once
#include <vector>

#include "ui/pictures/scenes.h"

namespace quill::ui {

/// The windows of the online commands. No service is asked. Those with web views are there where the plug-in
/// is.
std::vector<Scene> OnlineScenes();

}  // namespace quill::ui
