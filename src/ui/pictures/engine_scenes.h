#pragma once
#include <vector>

#include "ui/pictures/scenes.h"

namespace quill::ui {

/// The dialogs of the tools with an engine behind them, without their engines. The one for equations needs
/// the web engine: the tour shows it.
std::vector<Scene> EngineScenes();

}  // namespace quill::ui
