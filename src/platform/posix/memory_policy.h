#pragma once

namespace quill::platform {

/// Keeps large blocks that are freed for the next allocation instead of giving them back to the system at
/// once: one command makes and frees several texts as large as the selection, and every page that the
/// system hands out anew is cleared first (a third of the time on 3 MB). Called once, at start.
void KeepFreedMemory();

/// Gives back what is free: called when a command is over.
void ReturnFreedMemory();

}  // namespace quill::platform
