#pragma once
#include <QObject>
#include <any>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/user_interface.h"
#include "shell/string_table.h"
#include "ui/kit/file_panels.h"
#include "ui/kit/progress_window.h"
#include "ui/kit/user_answers.h"
#include "ui/kit/window_factory.h"

namespace quill::ui {

/// The screen of the program: alerts, questions, panels, progress, and the windows of the factory. Made and
/// destroyed on the GUI thread, called from the command thread.
class QtUserInterface final : public platform::UserInterface {
 public:
  QtUserInterface(const shell::StringTable& strings, const WindowFactory& windows)
      : m_strings(strings), m_windows(windows), m_progress(strings) {}

  void ShowMessage(std::string_view text) override;
  bool AskYesNo(std::string_view question) override;
  std::optional<std::filesystem::path> AskSavePath(const platform::SavePanel& panel) override;
  std::vector<std::filesystem::path> AskOpenPaths(const platform::OpenPanel& panel) override;
  std::optional<std::string> AskText(const platform::TextQuestion& question) override;
  std::unique_ptr<platform::Progress> BeginProgress(std::string_view title) override;
  void ShowWindow(std::any request) override;
  std::any RunWindow(std::any request) override;

  /// Shows an alert without anybody waiting for it. GUI thread.
  void Tell(std::string_view text);

  /// Ends everything on the screen: who still waits is answered (no message, NO, no path, no text), running
  /// jobs are cancelled, all windows are closed, and nothing is shown any more. GUI thread, before the
  /// command thread ends.
  void Close();

 private:
  const shell::StringTable& m_strings;
  const WindowFactory& m_windows;
  PanelMemory m_panels;
  bool m_closed = false;
  UserAnswers m_answers;
  ProgressWindows m_progress;
  QObject m_guiThread;  // what is posted to it is dropped with it
};

}  // namespace quill::ui
