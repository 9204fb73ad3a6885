#pragma once
#include <QObject>
#include <atomic>
#include <memory>
#include <string_view>

#include "platform/user_interface.h"
#include "shell/string_table.h"

namespace quill::ui {

/// Makes the progress of long jobs visible: a window with a bar, what the job works on, and Cancel. The job's
/// own object only writes down numbers; the window looks at them twenty times a second.
///
/// The window does not take the keyboard from another application: half a second after it was asked for, the
/// user may be typing there.
class ProgressWindows {
 public:
  /// GUI thread; so is the destructor, which jobs may outlive.
  explicit ProgressWindows(const shell::StringTable& strings) : m_strings(strings) {}
  ProgressWindows(const ProgressWindows&) = delete;

  /// Begins a job. Any thread; the object may be dropped on any thread at any time.
  std::unique_ptr<platform::Progress> Begin(std::string_view title);

  /// Every job, running or yet to come, is told that it was cancelled. GUI thread.
  void Close() { *m_closed = true; }

 private:
  const shell::StringTable& m_strings;
  std::shared_ptr<std::atomic<bool>> m_closed = std::make_shared<std::atomic<bool>>(false);
  QObject m_guiThread;  // what is posted to it is dropped with it
};

}  // namespace quill::ui
