#pragma once
#include <QImage>
#include <string>
#include <vector>

#include "shell/menu_state.h"
#include "ui/hot_key_center.h"
#include "ui/windows/options/options_facts.h"

namespace quill::ui {

// What the windows in the pictures show: the values of somebody who has used the program for a while.

/// A desktop on which OneNote runs and the user is signed in, with favourites of both kinds.
shell::MenuState SampleMenuState();

/// The keys of a first start, one of which another program has.
std::vector<HotKeyState> SampleHotKeys();

OptionsFacts SampleOptions();

/// The last used actions, as the setting keeps them.
std::string SampleRecentActions();

/// What the clipboard holds after a copy in OneNote.
std::string SampleClipboardText();

/// The lines for a problem report, without those of the machine that makes the pictures.
QString SampleSystemFacts();

/// A picture to be looked at and cut: a chart of a year's rain, as one keeps it in a notebook.
QImage SampleChart();

}  // namespace quill::ui
