#pragma once

namespace quill::cli {

/// From here on Control+C (SIGINT), SIGTERM and SIGHUP only set a flag, so that a command which runs another
/// program can end it and clear up.
void WatchInterrupts();

/// Whether one of them has come.
bool WasInterrupted();

}  // namespace quill::cli
