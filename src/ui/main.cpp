#include <QApplication>
#include <QTimer>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "base/version.h"
#include "platform/posix/local_channel.h"
#include "platform/posix/memory_policy.h"
#include "shell/url_handler.h"
#include "ui/kit/plain_style.h"
#include "ui/program.h"
#include "ui/quill_icon.h"
#include "ui/tour.h"

namespace {

constexpr std::chrono::seconds kLongestHandOver(10);

struct Arguments {
  std::filesystem::path root;
  std::optional<std::filesystem::path> tour;
  bool practice = false;
  bool install = false;
  bool exitWhenReady = false;
  bool version = false;
  std::string url;  ///< the link that the system starts the program with
};

/// What the command line asks for; nothing, with a line on standard error, when it is wrong.
std::optional<Arguments> ParseArguments(int argc, char** argv) {
  Arguments arguments;
  if (const char* root = std::getenv("QUILL_ROOT")) arguments.root = root;
  for (int i = 1; i < argc; ++i) {
    const std::string_view word = argv[i];
    const bool hasValue = i + 1 < argc;
    if (word == "--practice") {
      arguments.practice = true;
    } else if (word == "install") {
      arguments.install = true;
    } else if (word == "--exit-when-ready") {
      arguments.exitWhenReady = true;
    } else if (word == "--version") {
      arguments.version = true;
    } else if (quill::shell::IsVariableLink(word)) {
      arguments.url = word;
    } else if (word == "--root" && hasValue) {
      arguments.root = argv[++i];
    } else if (word == "--tour" && hasValue) {
      arguments.tour = argv[++i];
    } else {
      std::fprintf(stderr, "quillmenu: %s: not understood, or its value is missing; see `man quillmenu`\n",
                   argv[i]);
      return std::nullopt;
    }
  }
  return arguments;
}

/// What this start wants of an instance that runs already.
nlohmann::json RequestOf(const Arguments& arguments) {
  if (arguments.install) return {{"install", true}};
  if (!arguments.url.empty()) return {{"url", arguments.url}};
  return {{"trigger", arguments.practice ? "MenuItemPracticeNotebookClick" : "MenuItemShowMenuClick"}};
}

/// Hands a link, or another wish, to the instance that runs. False when none answers.
bool HandOver(const Arguments& arguments) {
  const auto path = quill::platform::LocalChannelPath(arguments.root);
  if (!path.ok()) return false;
  const std::string line =
      RequestOf(arguments).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
  return quill::platform::AskLocalChannel(*path, line, kLongestHandOver).ok();
}

/// Ends the program as soon as the desktop has given the tray icon its place.
void QuitWhenReady(QApplication& app, quill::ui::Tray& tray) {
  auto* timer = new QTimer(&app);
  QObject::connect(timer, &QTimer::timeout, &app, [&tray] {
    if (tray.InPlace()) QApplication::quit();
  });
  timer->start(1);
}

}  // namespace

int main(int argc, char** argv) {
  const std::optional<Arguments> arguments = ParseArguments(argc, argv);
  if (!arguments) return 2;
  if (arguments->version) {
    std::printf("quillmenu %s\n", quill::kVersion);
    return 0;
  }
  if (HandOver(*arguments)) return 0;
  quill::platform::KeepFreedMemory();
  QApplication app(argc, argv);
  quill::ui::PlainStyle::UseWhereNothingIsNative();
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setApplicationName(QStringLiteral("Quill Menu"));
  QGuiApplication::setDesktopFileName(QStringLiteral("quillmenu"));
  QApplication::setWindowIcon(quill::ui::QuillIcon(false));
  QApplication::setApplicationVersion(QString::fromLatin1(quill::kVersion));
  quill::ui::Program program(arguments->root);
  if (!program.ListenForTriggers(arguments->root)) {
    // Another start was faster since the question above.
    if (HandOver(*arguments)) return 0;
    std::fprintf(stderr, "quillmenu: already running, but it does not answer\n");
    return 1;
  }
  if (arguments->install) program.InstallShortcut();
  if (!arguments->url.empty()) program.OpenLink(arguments->url);
  if (arguments->exitWhenReady) QuitWhenReady(app, program.tray());
  if (arguments->practice) program.OpenPractice();
  std::optional<quill::ui::Tour> tour;
  if (arguments->tour) tour.emplace(program, *arguments->tour);
  return QApplication::exec();
}
