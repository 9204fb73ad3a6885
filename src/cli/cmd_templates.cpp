#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <nlohmann/json.hpp>

#include "cli/commands.h"
#include "cli/console.h"
#include "cli/remote.h"
#include "content/text_between.h"
#include "content/unicode_text.h"
#include "files/name_number.h"
#include "files/templates/template_copy.h"
#include "files/templates/template_folder.h"
#include "platform/clock.h"
#include "platform/recording/recording.h"
#include "shell/globals.h"
#include "shell/onenote_main.h"

namespace quill::cli {
namespace {

constexpr std::int64_t kSaveAsTemplate = 8;

struct Options {
  std::string name;
  std::string in = "-";
  std::filesystem::path folder;
  bool fragment = false;
  bool json = false;
};

std::filesystem::path FolderOf(const Call& call) {
  return shell::OpenGlobals(call.root, platform::SystemClock()).folders.TemplateFolder;
}

std::vector<std::string> Names(const Call& call) {
  Result<std::vector<std::string>> names = files::TemplateNames(FolderOf(call));
  if (!names.ok()) throw Stop(kWorkFailed, names.error());
  return std::move(*names);
}

void List(const Call& call, bool json) {
  const std::vector<std::string> names = Names(call);
  std::string text;
  for (const std::string& name : names) text += name + "\n";
  constexpr auto kReplace = nlohmann::json::error_handler_t::replace;
  WriteOutput("", json ? nlohmann::json(names).dump(2, ' ', false, kReplace) + "\n" : text);
}

/// Stops, naming it, when there is no such template.
void RequireTemplate(const Call& call, const std::string& name) {
  const std::vector<std::string> names = Names(call);
  if (std::ranges::find(names, name) != names.end()) return;
  throw Stop(kWrongCall, fmt::format("there is no template \"{}\"; `quill templates list` shows all",
                                     name.substr(0, 80)));
}

/// What the command says when all is well is for windows; anything else is a problem.
int PrintProblems(const shell::StringTable& strings, const std::vector<std::string>& messages) {
  const std::string_view success = strings.Text("msgSaveTemplateSuccess");
  for (const std::string& message : messages) {
    if (message != success) PrintError(message);
  }
  const bool isSaved = !messages.empty() && std::string_view(messages.back()).starts_with(success);
  return isSaved ? kDone : kWorkFailed;
}

int Save(const Call& call, const Options& options) {
  const std::string name(content::TrimWhite(options.name));
  if (files::CheckTemplateName(name) != files::TemplateNameProblem::None)
    throw Stop(kWrongCall, fmt::format("\"{}\" cannot be the name of a template", name.substr(0, 80)));
  std::string html = ReadInputText(options.in);
  if (!options.fragment && html.find(content::kStartMarker) == std::string::npos)
    throw Stop(kWrongCall,
               "the input is no copied page: it has no fragment marks (for HTML without them: --fragment)");
  if (options.fragment) html = content::JoinFragment(content::kBuiltHead, html, content::kBuiltTail);
  const platform::SystemClock clock;
  shell::Globals globals = shell::InitGlobals(call.root, clock);
  globals.folders.SettingsFile.clear();
  platform::recording::Recording desktop({std::move(html), std::nullopt, std::nullopt});
  desktop.AnswerText(name);
  shell::Explain explain = MakeExplain(call);
  shell::Log log;
  shell::Services services{desktop, desktop, desktop, desktop, clock, call.strings, explain, log};
  shell::NSOneNoteMain(services, globals).Run(kSaveAsTemplate);
  return PrintProblems(call.strings, desktop.messages());
}

void Delete(const Call& call, const std::string& name) {
  RequireTemplate(call, name);
  const Status<> deleted = files::DeleteTemplate(FolderOf(call), name);
  if (!deleted.ok()) throw Stop(kWorkFailed, deleted.error());
}

/// Copies from one folder to another, one of them the templates' own; tells on standard error what was left
/// out.
int Copy(const std::filesystem::path& from, const std::filesystem::path& to,
         const std::filesystem::path& given) {
  std::error_code error;
  if (!std::filesystem::is_directory(given, error))
    throw Stop(kWrongCall, fmt::format("{}: is not a folder", given.string()));
  const files::TemplateCopy copy = files::CopyTemplates(from, to);
  WriteOutput("", fmt::format("{} copied, {} there already\n", copy.copied, copy.kept));
  if (copy.failed == 0) return kDone;
  PrintError(fmt::format("{} could not be copied: {}", copy.failed, copy.reason));
  return kWorkFailed;
}

int Insert(const Call& call, const std::string& name) {
  RequireTemplate(call, name);
  return RunInApplication(call, "MenuItemTemplateClick", files::NumberOfName(name));
}

void AddFolderCommands(CLI::App& templates, Call& call, const std::shared_ptr<Options>& options) {
  CLI::App* exports =
      templates.add_subcommand("export", "Copy all templates into a folder; nothing is replaced");
  exports->add_option("folder", options->folder, "Where to")->required()->type_name("DIR");
  exports->callback([&call, options] {
    const shell::Globals globals = shell::InitGlobals(call.root, platform::SystemClock());
    call.status = Copy(globals.folders.TemplateFolder, options->folder, options->folder);
  });
  CLI::App* imports =
      templates.add_subcommand("import", "Take the templates of a folder; nothing is replaced");
  imports->add_option("folder", options->folder, "Where from")->required()->type_name("DIR");
  imports->callback([&call, options] {
    const shell::Globals globals = shell::InitGlobals(call.root, platform::SystemClock());
    call.status = Copy(options->folder, globals.folders.TemplateFolder, options->folder);
  });
}

}  // namespace

void AddTemplates(CLI::App& app, Call& call) {
  auto options = std::make_shared<Options>();
  CLI::App* templates = app.add_subcommand("templates", "List, save, insert, copy and delete templates");
  templates->require_subcommand(1);
  CLI::App* list = templates->add_subcommand("list", "The names of all templates, a line each");
  list->add_flag("--json", options->json, "A JSON array");
  list->callback([&call, options] { List(call, options->json); });
  CLI::App* save =
      templates->add_subcommand("save", "Save pasteboard HTML as a template, its pictures inside");
  save->add_option("--in", options->in, "The HTML; - is standard input, and what is read without it")
      ->type_name("FILE");
  save->add_flag("--fragment", options->fragment, "The input is a bare fragment");
  save->callback([&call, options] { call.status = Save(call, *options); });
  CLI::App* insert =
      templates->add_subcommand("insert", "Insert a template at the caret, through the running application");
  insert->callback([&call, options] { call.status = Insert(call, options->name); });
  CLI::App* remove = templates->add_subcommand("delete", "Delete a template");
  remove->callback([&call, options] { Delete(call, options->name); });
  for (CLI::App* named : {save, insert, remove})
    named->add_option("name", options->name, "Name of the template")->required()->type_name("NAME");
  AddFolderCommands(*templates, call, options);
}

}  // namespace quill::cli
