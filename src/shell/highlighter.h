#pragma once
#include "platform/process_runner.h"
#include "shell/settings.h"
#include "tools/find_highlighter.h"

namespace quill::shell {

/// The highlighter of this machine: the fixed path of its processor, the setting `HighlighterPath`, or the
/// first "highlight" on PATH. Asks the system for the processor, which takes a moment, only when there is a
/// program at a fixed path. Any thread.
tools::HighlighterPlace FindHighlighter(const Settings& settings, platform::ProcessRunner& runner);

}  // namespace quill::shell
