#pragma once
#include <filesystem>
#include <functional>
#include <string>

#include "shell/explain.h"
#include "shell/string_table.h"

namespace CLI {
class App;
}

namespace quill::cli {

/// What every subcommand sees of the call as a whole.
struct Call {
  std::filesystem::path root;  ///< test root, or empty for this user's own folders
  bool explain = false;
  bool stats = false;
  shell::StringTable strings;
  int status = 0;  ///< the exit status, set by the subcommand that ran
};

/// An `Explain` that writes to standard error what `--explain` and `--stats` asked for.
shell::Explain MakeExplain(const Call& call);

// Each adds one subcommand, or a few of a kind, to the parser; its callback does the work.
void AddList(CLI::App& app, Call& call);
void AddRun(CLI::App& app, Call& call);
void AddInsert(CLI::App& app, Call& call);
void AddTitle(CLI::App& app, Call& call);
void AddCodec(CLI::App& app, Call& call);
void AddImage(CLI::App& app, Call& call);
void AddHighlight(CLI::App& app, Call& call);
void AddPhonetics(CLI::App& app, Call& call);
void AddLink(CLI::App& app, Call& call);
void AddFavourites(CLI::App& app, Call& call);
void AddTemplates(CLI::App& app, Call& call);
void AddOnline(CLI::App& app, Call& call);
void AddPackage(CLI::App& app, Call& call);
void AddSettings(CLI::App& app, Call& call);
void AddSignin(CLI::App& app, Call& call);
void AddMonitor(CLI::App& app, Call& call);
void AddBackup(CLI::App& app, Call& call);
void AddUpdate(CLI::App& app, Call& call);
void AddTrigger(CLI::App& app, Call& call);
void AddDoctor(CLI::App& app, Call& call);
void AddPractice(CLI::App& app, Call& call);
void AddOneDrive(CLI::App& app, Call& call);
void AddVarLink(CLI::App& app, Call& call);

}  // namespace quill::cli
