#pragma once
#include "ui/pictures/scenes.h"

namespace quill::ui {

/// Find and replace with the plug-in's view on a page of minutes: some matches replaced, one in view. Needs
/// the plug-in.
Look OpenFindReplace(Studio& studio);

}  // namespace quill::ui
