#pragma once
#include "shell/window_requests.h"
#include "ui/kit/tool_window.h"

namespace quill::ui {

/// Shows a text to be looked at, with a button that copies it exactly as it was given.
class MWinTest final : public ToolWindow {
 public:
  MWinTest(const shell::StringTable& strings, const shell::TextRequest& request);
};

}  // namespace quill::ui
