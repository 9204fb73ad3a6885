#pragma once

class QWidget;

namespace quill::ui {

/// Puts a window that is about to be shown into the middle of the screen that the pointer is on, and makes it
/// smaller when it would not fit there.
void CentreOnPointerScreen(QWidget& window);

/// Shows a window in front of all others, with the keyboard; a minimised one is brought back.
void BringToFront(QWidget& window);

/// Closes every dialog and tool window of the program, those who wait for one get "cancelled". For the end of
/// the program: the windows are destroyed before this returns, unless it is called from an event of theirs.
void CloseAllWindows();

}  // namespace quill::ui
