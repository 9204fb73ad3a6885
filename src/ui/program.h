#pragma once
#include <QObject>
#include <filesystem>
#include <memory>
#include <string>

#include "platform/native_backend.h"
#include "shell/application.h"
#include "ui/appearance.h"
#include "ui/backends.h"
#include "ui/equation_host.h"
#include "ui/file_windows_library.h"
#include "ui/hot_key_center.h"
#include "ui/kit/file_panels.h"
#include "ui/kit/qt_user_interface.h"
#include "ui/kit/window_factory.h"
#include "ui/options_host.h"
#include "ui/pages_number_host.h"
#include "ui/palette_host.h"
#include "ui/practice_host.h"
#include "ui/qt_language.h"
#include "ui/tray.h"

namespace quill::platform {
class LocalChannelServer;
}

namespace quill::ui {

struct RulerMemory;

/// The running tray program: makes every part, ties them together, and takes them down in the right order.
/// GUI thread.
class Program {
 public:
  explicit Program(const std::filesystem::path& root);
  ~Program();
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  /// Starts to listen for `quill trigger` and for later starts. False when another instance of this user
  /// listens already.
  bool ListenForTriggers(const std::filesystem::path& root);

  /// Opens the practice notebook; tells the user when its plug-in cannot be loaded.
  void OpenPractice();

  /// Runs an action as a click does: a refusal is told in a box.
  void RunAction(const shell::CommandRow& row, std::optional<std::int64_t> argument);

  /// Opens a "qvar://" link that the program was started with or that the system handed over.
  void OpenLink(const std::string& url);

  /// Gives OneNote's command "Copy Link to Page" its keys.
  void InstallShortcut();

  Tray& tray() { return m_tray; }
  PracticeHost& practice() { return m_practice; }
  shell::Application& application() { return *m_application; }

 private:
  /// Loads the settings, and takes the language before the first text is shown.
  shell::Globals StartGlobals(const std::filesystem::path& root);
  /// Tells the factory which window belongs to which request.
  void AddWindows();
  void AddToolWindows();
  LibraryHooks Library();
  void AddHosts();
  void AddPagesWindows();
  QWidget* OpenAbout();
  QWidget* OpenImage(const std::filesystem::path& file);

  /// Looks at the desktop and shows in menu and palette what can run now.
  void RefreshMenu();
  /// Takes the language and the hot keys from these settings.
  void UseSettings(const shell::Settings& settings);
  void UseLanguage(const std::string& setting);
  void ShowHotKeys(const std::vector<HotKeyState>& state);
  /// Tells once, at start, which keys another program has.
  void TellTakenKeys(const std::vector<HotKeyState>& state);
  void PressHotKey(const shell::CommandRow& row);
  /// Remembers an action as the one used last.
  void Remember(const shell::CommandRow& row, std::optional<std::int64_t> argument);
  /// Pastes a picture file at OneNote's caret, as a command.
  void PastePicture(const std::filesystem::path& png);

  /// Tells a refusal; what ran has told its own troubles.
  void TellRefusal(const shell::Outcome& outcome);

  platform::SystemClock m_clock;
  shell::StringTable m_strings;
  QtLanguage m_qtLanguage;
  shell::Log m_log{shell::Log::Options{}};
  WindowFactory m_windows;
  QtUserInterface m_ui;
  shell::Globals m_startGlobals;
  shell::Folders m_folders;  ///< paths, which never change
  PanelMemory m_imagePanels;
  std::shared_ptr<RulerMemory> m_rulers;
  std::string m_language;  ///< the setting in use
  PracticeHost m_practice;
  EquationHost m_equations;
  Backends m_backends;
  std::unique_ptr<platform::Workspace> m_workspace = platform::OpenWorkspace();
  std::unique_ptr<platform::UrlEvents> m_links = platform::OpenUrlEvents();
  std::unique_ptr<shell::Application> m_application;
  std::unique_ptr<platform::LocalChannelServer> m_channel;
  Appearance m_appearance;
  HotKeyCenter m_hotKeys;
  std::optional<std::string> m_hotKeySetting;  ///< the setting in use, once there is one
  bool m_toldTakenKeys = false;
  std::string m_recentActions;
  PaletteHost m_palette;
  std::unique_ptr<OptionsHost> m_options;
  std::unique_ptr<PagesNumberHost> m_pagesNumber;
  Tray m_tray;
};

}  // namespace quill::ui
