#pragma once
#include <functional>

#include "base/endpoints.h"
#include "base/result.h"
#include "platform/clock.h"
#include "platform/desktop.h"
#include "platform/pasteboard.h"
#include "platform/user_interface.h"
#include "platform/workspace.h"
#include "shell/engines.h"
#include "shell/explain.h"
#include "shell/log.h"
#include "shell/string_table.h"

namespace quill::shell {

/// What a command needs from outside, passed in at construction.
struct Services {
  platform::Desktop& desktop;
  platform::Pasteboard& pasteboard;
  platform::Workspace& workspace;
  platform::UserInterface& ui;
  const platform::Clock& clock;
  const StringTable& strings;
  Explain& explain;
  Log& log;
  Engines engines = {};
  /// The practice notebook's online service, for a command that works in the notebook; it may fail with a
  /// text for the user. Empty for every other target.
  std::function<Result<Endpoints>()> practiceService = nullptr;
};

}  // namespace quill::shell
