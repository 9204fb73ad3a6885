#include <CLI/CLI.hpp>
#include <cstdlib>

#include "base/version.h"
#include "cli/commands.h"
#include "cli/console.h"

namespace {

using quill::cli::Call;

void AddCommands(CLI::App& app, Call& call) {
  app.require_subcommand(1);
  app.set_version_flag("--version", std::string("quill ") + quill::kVersion);
  app.add_option("--root", call.root, "Keep every folder of the program below DIR (for tests and trials)")
      ->envname("QUILL_ROOT")
      ->type_name("DIR");
  app.add_flag("--explain", call.explain, "Tell on standard error which steps a command took and why");
  app.add_flag("--stats", call.stats, "Tell on standard error how long the steps took");
  app.fallthrough();
  quill::cli::AddList(app, call);
  quill::cli::AddRun(app, call);
  quill::cli::AddInsert(app, call);
  quill::cli::AddTitle(app, call);
  quill::cli::AddCodec(app, call);
  quill::cli::AddImage(app, call);
  quill::cli::AddHighlight(app, call);
  quill::cli::AddPhonetics(app, call);
  quill::cli::AddLink(app, call);
  quill::cli::AddFavourites(app, call);
  quill::cli::AddTemplates(app, call);
  quill::cli::AddOnline(app, call);
  quill::cli::AddPackage(app, call);
  quill::cli::AddSettings(app, call);
  quill::cli::AddSignin(app, call);
  quill::cli::AddMonitor(app, call);
  quill::cli::AddBackup(app, call);
  quill::cli::AddUpdate(app, call);
  quill::cli::AddTrigger(app, call);
  quill::cli::AddDoctor(app, call);
  quill::cli::AddPractice(app, call);
  quill::cli::AddOneDrive(app, call);
  quill::cli::AddVarLink(app, call);
}

/// Help and version are answers; every other complaint of the parser is a wrong call.
int ReportParse(const CLI::App& app, const CLI::ParseError& problem) {
  if (problem.get_exit_code() == 0) return app.exit(problem);
  const std::vector<std::string> unknown = app.remaining();
  const bool wrongWord = app.get_subcommands().empty() && !unknown.empty();
  quill::cli::PrintError(wrongWord ? "there is no command \"" + unknown.front() + "\"; see `quill --help`"
                                   : std::string(problem.what()));
  return quill::cli::kWrongCall;
}

}  // namespace

int main(int argc, char** argv) {
  Call call;
  CLI::App app("Tools for OneNote without a screen. See `man quill`.", "quill");
  AddCommands(app, call);
  try {
    app.parse(argc, argv);
    return call.status;
  } catch (const CLI::ParseError& problem) {
    return ReportParse(app, problem);
  } catch (const quill::cli::Stop& stop) {
    quill::cli::PrintError(stop.what());
    return stop.status;
  } catch (const std::exception& problem) {
    quill::cli::PrintError(problem.what());
    return quill::cli::kWorkFailed;
  }
}
