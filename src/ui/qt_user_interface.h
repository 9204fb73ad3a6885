#pragma once
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "platform/user_interface.h"
#include "shell/string_table.h"
#include "ui/user_answers.h"

namespace quill::ui {

/// Alerts, questions and save panels as windows of this program. Made on the GUI thread, called from the
/// command thread.
class QtUserInterface final : public platform::UserInterface {
 public:
  explicit QtUserInterface(const shell::StringTable& strings) : m_strings(strings) {}

  void ShowMessage(std::string_view text) override;
  bool AskYesNo(std::string_view question) override;
  std::optional<std::filesystem::path> AskSavePath(const platform::SavePanel& panel) override;

  /// Shows an alert without anybody waiting for it. GUI thread.
  void Tell(std::string_view text);

  /// Answers everybody who still waits: no message, NO, no path. GUI thread, before the command thread ends.
  void Close() { m_answers.Close(); }

 private:
  const shell::StringTable& m_strings;
  UserAnswers m_answers;
};

}  // namespace quill::ui
