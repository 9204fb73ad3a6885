#pragma once
#include <QPointer>
#include <functional>
#include <string>
#include <vector>

#include "platform/clock.h"
#include "shell/application.h"
#include "shell/window_requests.h"
#include "ui/hot_key_center.h"
#include "ui/windows/options/win_options.h"

namespace quill::ui {

/// The options window's place in the program: opens it on the settings as they are, carries its changes to
/// the command thread, and keeps it up to date. GUI thread.
class OptionsHost {
 public:
  struct Parts {
    const shell::StringTable& strings;
    const platform::Clock& clock;
    shell::Application& application;
    std::function<void(const shell::Settings& settings)> onChanged;  ///< a setting was saved
    std::function<void(const std::string& action)> runAction;
    std::function<void(const std::string& problem)> tell;
  };

  explicit OptionsHost(Parts parts) : m_parts(std::move(parts)) {}

  /// Opens the window on this page, or shows the open one. The settings are read first, so it may be on the
  /// screen only when a running command is done.
  void Open(shell::OptionsRequest::Page page);

  /// Reads the settings again for an open window: somebody else may have changed them.
  void Refresh();

  void Update(const std::vector<HotKeyState>& hotKeys);
  void Retranslate();

  /// See `MWinOptions::TakePressedHotKey`.
  bool TakePressedHotKey(const shell::CommandRow& row);

 private:
  /// Reads the settings on the command thread and hands them on here.
  void WithFacts(std::function<void(const OptionsFacts&)> use);
  void Show(shell::OptionsRequest::Page page, const OptionsFacts& facts);
  void Change(const std::string& key, const std::string& text, OptionsHandlers::Done done);

  Parts m_parts;
  std::vector<HotKeyState> m_hotKeys;
  QPointer<MWinOptions> m_window;
};

}  // namespace quill::ui
