#pragma once
#include <QPointer>
#include <filesystem>
#include <functional>
#include <optional>

#include "platform/workspace.h"
#include "shell/application.h"
#include "shell/window_requests.h"
#include "ui/windows/monitor/win_pages_number.h"

namespace quill::ui {

/// The places in the program of the two windows that tell the number of pages: brings what they tell from the
/// command thread. GUI thread.
class PagesNumberHost {
 public:
  struct Parts {
    const shell::StringTable& strings;
    shell::Application& application;
    platform::Workspace& workspace;
    std::filesystem::path historyFile;
    std::function<void(const std::string& problem)> tell;
  };

  explicit PagesNumberHost(Parts parts) : m_parts(std::move(parts)) {}

  /// Shows the one window of the number of pages.
  QWidget* Open(const shell::PagesNumberRequest& request);

  /// Shows the pages of the last days, as soon as the history has been read.
  void OpenDays();

 private:
  void AskFacts();
  void OpenHistory();

  Parts m_parts;
  QPointer<MWinPagesNumber> m_window;
  bool m_isAsking = false;
  /// The history that the window has: its time of change and the setting it was read with. Command thread.
  struct Seen {
    std::optional<std::filesystem::file_time_type> changedAt;
    std::int64_t tolerated = 0;
    bool operator==(const Seen&) const = default;
  };
  std::optional<Seen> m_seen;
};

}  // namespace quill::ui
