#include <QApplication>

#include "shell/onenote_main.h"
#include "shell/window_requests.h"
#include "ui/backup_windows.h"
#include "ui/content_windows.h"
#include "ui/engine_windows.h"
#include "ui/file_windows_library.h"
#include "ui/file_windows_links.h"
#include "ui/file_windows_packages.h"
#include "ui/kit/on_gui.h"
#include "ui/online_windows.h"
#include "ui/program.h"
#include "ui/windows/image/win_image.h"
#include "ui/windows/win_about.h"
#include "ui/windows/win_ruler.h"
#include "ui/windows/win_test.h"

namespace quill::ui {

void Program::AddHosts() {
  m_options = std::make_unique<OptionsHost>(OptionsHost::Parts{
      m_strings, m_clock, *m_application, [this](const shell::Settings& settings) { UseSettings(settings); },
      [this](const std::string& action) { RunAction(*shell::FindCommand(action), {}); },
      [this](const std::string& problem) { m_ui.Tell(problem); }});
  m_pagesNumber = std::make_unique<PagesNumberHost>(
      PagesNumberHost::Parts{m_strings, *m_application, *m_workspace, m_folders.PagesNumHistoryFile,
                             [this](const std::string& problem) { m_ui.Tell(problem); }});
}

void Program::AddPagesWindows() {
  m_windows.AddWindow<shell::PagesNumberRequest>(
      [this](const shell::PagesNumberRequest& request) { return m_pagesNumber->Open(request); });
  m_windows.AddWindow<shell::ADayPagesRequest>([this](const auto&) -> QWidget* {
    m_pagesNumber->OpenDays();
    return nullptr;
  });
  m_windows.AddWindow<shell::NotifyRequest>([this](const shell::NotifyRequest& notice) -> QWidget* {
    m_tray.Notify(notice.title, notice.text);
    return nullptr;
  });
}

void Program::AddWindows() {
  AddPagesWindows();
  m_windows.AddWindow<shell::MenuRequest>([this](const auto&) -> QWidget* {
    m_tray.ShowMenu();
    return nullptr;
  });
  m_windows.AddWindow<shell::PaletteRequest>([this](const auto&) -> QWidget* {
    RefreshMenu();
    m_palette.Open();
    return nullptr;
  });
  m_windows.AddWindow<shell::OptionsRequest>([this](const shell::OptionsRequest& request) -> QWidget* {
    m_options->Open(request.page);
    return nullptr;
  });
  m_windows.AddWindow<shell::PracticeRequest>([this](const auto&) -> QWidget* {
    OpenPractice();
    return nullptr;
  });
  m_windows.AddWindow<shell::NoticeRequest>([this](const shell::NoticeRequest& notice) -> QWidget* {
    m_ui.Tell(notice.text);
    return nullptr;
  });
  m_windows.AddWindow<shell::QuitRequest>([](const auto&) -> QWidget* {
    QApplication::quit();
    return nullptr;
  });
}

LibraryHooks Program::Library() {
  return {[this](const std::string& name, LibraryHooks::Job job, std::function<void()> done) {
    m_application->RunJob(name, std::move(job),
                          [this, done = std::move(done)](const shell::Outcome& outcome) {
                            TellRefusal(outcome);
                            OnGui(done);
                          });
  }};
}

void Program::AddToolWindows() {
  AddContentWindows(m_windows, m_strings, m_imagePanels);
  AddPackageWindows(m_windows, m_strings, m_imagePanels);
  AddLibraryWindows(m_windows, m_strings, m_folders, Library());
  AddBackupWindows(m_windows, {m_strings, m_clock, *m_application, m_folders,
                               [this](const shell::Outcome& outcome) { TellRefusal(outcome); }});
  AddLinkWindows(m_windows, m_strings);
  AddEngineWindows(m_windows, m_strings, m_equations, [this](const std::string& text) { m_ui.Tell(text); });
  OnlineWindowHooks online;
  online.tell = [this](const std::string& text) { m_ui.Tell(text); };
  online.openLocation = [this](const std::string& link) {
    m_application->RunJob(
        std::string(m_strings.Text("strOpenInOneNote")),
        [link](shell::CommandContext& context) {
          shell::NSOneNoteMain(context.services, context.globals).OpenLocation(link);
        },
        [this](const shell::Outcome& outcome) { TellRefusal(outcome); });
  };
  online.refreshNavigation = [this] { RunAction(*shell::FindCommand("MenuItemNavigationPaneClick"), {}); };
  AddOnlineWindows(m_windows, m_strings, online);
  m_windows.AddWindow<shell::TextRequest>(
      [this](const shell::TextRequest& request) { return new MWinTest(m_strings, request); });
  m_windows.AddWindow<shell::AboutRequest>([this](const auto&) { return OpenAbout(); });
  m_windows.AddWindow<shell::RulerRequest>(
      [this](const auto&) { return new MWinRuler(m_strings, m_rulers); });
  m_windows.AddWindow<shell::ImageRequest>(
      [this](const shell::ImageRequest& request) { return OpenImage(request.file); });
}

QWidget* Program::OpenAbout() {
  return ShowOne<MWinAbout>([this] {
    AboutFacts facts{m_folders.SettingsFile, m_folders.SupportFolder, LicenseText(), ThirdPartyNotices(), {}};
    facts.showFolder = [this](const std::filesystem::path& folder) {
      // Off this thread: a file manager may take its time to answer.
      m_application->Post([this, folder](shell::Globals&) {
        const Status<> shown = m_workspace->Reveal(folder);
        if (!shown.ok()) m_ui.ShowWindow(shell::NoticeRequest{m_strings.Format("errOpen", {shown.error()})});
      });
    };
    return new MWinAbout(m_strings, std::move(facts));
  });
}

QWidget* Program::OpenImage(const std::filesystem::path& file) {
  auto* window = new MWinImage({m_strings, m_imagePanels, m_folders.TmpFolder,
                                [this](const std::filesystem::path& png) { PastePicture(png); }});
  window->Open(file);
  return window;
}

}  // namespace quill::ui
