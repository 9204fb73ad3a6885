#pragma once
#include <QObject>
#include <filesystem>
#include <memory>

#include "shell/application.h"
#include "ui/backends.h"
#include "ui/practice_host.h"
#include "ui/qt_user_interface.h"
#include "ui/tray.h"

namespace quill::platform {
class LocalChannelServer;
}

namespace quill::ui {

/// The running tray program: makes every part, ties them together, and takes them down in the right order.
/// GUI thread.
class Program {
 public:
  explicit Program(const std::filesystem::path& root);
  ~Program();
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  /// Starts to listen for `quill trigger`. False when another instance of this user listens already.
  bool ListenForTriggers(const std::filesystem::path& root);

  /// Opens the practice notebook; tells the user when its plug-in cannot be loaded.
  void OpenPractice();

  /// Runs an action as a click does: a refusal is told in a box.
  void RunAction(const shell::CommandRow& row, std::optional<std::int64_t> argument);

  Tray& tray() { return m_tray; }
  PracticeHost& practice() { return m_practice; }
  shell::Application& application() { return *m_application; }

 private:
  platform::SystemClock m_clock;
  shell::StringTable m_strings;
  shell::Log m_log{shell::Log::Options{}};
  QtUserInterface m_ui;
  shell::Globals m_startGlobals;
  PracticeHost m_practice;
  Backends m_backends;
  std::unique_ptr<shell::Application> m_application;
  std::unique_ptr<platform::LocalChannelServer> m_channel;
  Tray m_tray;
};

}  // namespace quill::ui
