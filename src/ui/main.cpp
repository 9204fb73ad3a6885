#include <QApplication>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <optional>
#include <string>

#include "base/version.h"
#include "platform/posix/memory_policy.h"
#include "ui/program.h"
#include "ui/tour.h"

namespace {

struct Arguments {
  std::filesystem::path root;
  std::optional<std::filesystem::path> tour;
  bool practice = false;
  bool exitWhenReady = false;
  bool version = false;
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
    } else if (word == "--exit-when-ready") {
      arguments.exitWhenReady = true;
    } else if (word == "--version") {
      arguments.version = true;
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
  quill::platform::KeepFreedMemory();
  QApplication app(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setApplicationName(QStringLiteral("Quill Menu"));
  QApplication::setApplicationVersion(QString::fromLatin1(quill::kVersion));
  quill::ui::Program program(arguments->root);
  if (!program.ListenForTriggers(arguments->root)) {
    std::fprintf(stderr, "quillmenu: already running\n");
    return 1;
  }
  if (arguments->exitWhenReady) QuitWhenReady(app, program.tray());
  if (arguments->practice) program.OpenPractice();
  std::optional<quill::ui::Tour> tour;
  if (arguments->tour) tour.emplace(program, *arguments->tour);
  return QApplication::exec();
}
