#pragma once
#include <vector>

#include "ui/pictures/scenes.h"

namespace quill::ui {

/// The windows for files on this machine: packages, backups, links, copies of attachments.
std::vector<Scene> FileScenes();

}  // namespace quill::ui
