#pragma once
#include <chrono>

namespace quill::platform::mac {

/// True while OneNote is open.
bool OneNoteRunning();

/// True while OneNote is the application in front.
bool OneNoteIsActive();

/// Asks OneNote for nothing in particular and waits until it replies. Its main thread replies between two
/// events, so by then it has dealt with keys that were sent well before. True when it replied or refused to;
/// false at the deadline or when it is not open.
bool WaitUntilOneNoteAnswers(std::chrono::milliseconds deadline);

}  // namespace quill::platform::mac
