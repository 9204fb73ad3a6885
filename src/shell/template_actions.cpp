#include "shell/template_actions.h"

#include <fmt/format.h>

#include "content/html_normalizer.h"
#include "content/unicode_text.h"
#include "files/name_number.h"
#include "files/templates/template_copy.h"
#include "files/templates/template_folder.h"
#include "shell/command_table.h"
#include "shell/image_sources.h"
#include "shell/library_requests.h"
#include "shell/onenote_main.h"
#include "shell/transform_table.h"
#include "tools/date_text.h"

namespace quill::shell {
namespace {

namespace fs = std::filesystem;
using files::TemplateNameProblem;

std::string_view NameProblemKey(TemplateNameProblem problem) {
  switch (problem) {
    case TemplateNameProblem::None:
      break;
    case TemplateNameProblem::Empty:
      return "errTemplateNameEmpty";
    case TemplateNameProblem::NotAName:
      return "errTemplateName";
    case TemplateNameProblem::Extension:
      return "errTemplateNameExtension";
  }
  return {};
}

/// Asks until the name can be one, each time with what was typed before.
std::optional<std::string> AskName(const Services& services) {
  const StringTable& strings = services.strings;
  std::string typed;
  for (;;) {
    const std::optional<std::string> answer =
        services.ui.AskText({std::string(strings.Text("titleSaveTemplate")),
                             std::string(strings.Text("strTemplateName")), typed});
    if (!answer) return std::nullopt;
    typed = content::TrimWhite(*answer);
    const TemplateNameProblem problem = files::CheckTemplateName(typed);
    if (problem == TemplateNameProblem::None) return typed;
    services.ui.ShowMessage(strings.Text(NameProblemKey(problem)));
  }
}

/// A message with the reason on a line of its own.
std::string WithReason(std::string_view message, std::string_view reason) {
  return fmt::format("{}\n{}", message, reason);
}

void Delete(CommandContext& context, const TemplateWish& wish) {
  const Services& services = context.services;
  const bool asks = wish.kind == TemplateWish::Kind::AskAndDelete;
  if (asks && !services.ui.AskYesNo(services.strings.Format("askDeleteTemplate", {wish.name}))) return;
  const Status<> deleted = files::DeleteTemplate(context.globals.folders.TemplateFolder, wish.name);
  if (deleted.ok()) return;
  services.ui.ShowMessage(WithReason(services.strings.Text("errDeleteTemplate"), deleted.error()));
}

/// Copies while the user watches and can stop it; tells what was not copied.
files::TemplateCopy Copy(CommandContext& context, const fs::path& from, const fs::path& to) {
  const Services& services = context.services;
  const auto progress = services.ui.BeginProgress(services.strings.Text("strCopyingTemplates"));
  const auto watch = [&](std::size_t done, std::size_t total, const fs::path& next) {
    progress->Set(total == 0 ? -1 : static_cast<double>(done) / static_cast<double>(total), next.string());
    return !progress->Cancelled();
  };
  return files::CopyTemplates(from, to, watch);
}

void TellUncopied(const Services& services, const files::TemplateCopy& copy) {
  std::string message;
  if (copy.kept > 0) message = services.strings.Format("msgTemplatesKept", {std::to_string(copy.kept)});
  if (copy.failed > 0) {
    if (!message.empty()) message += "\n\n";
    message +=
        WithReason(services.strings.Format("msgTemplatesFailed", {std::to_string(copy.failed)}), copy.reason);
  }
  if (!message.empty()) services.ui.ShowMessage(message);
}

std::optional<fs::path> AskFolder(const Services& services, std::string_view title) {
  platform::OpenPanel panel;
  panel.title = title;
  panel.kind = platform::OpenKind::Folders;
  const std::vector<fs::path> chosen = services.ui.AskOpenPaths(panel);
  if (chosen.empty()) return std::nullopt;
  return chosen.front();
}

void Export(CommandContext& context) {
  const Services& services = context.services;
  const std::optional<fs::path> folder = AskFolder(services, "Choose folder to export templates");
  if (!folder) return;
  const files::TemplateCopy copy = Copy(context, context.globals.folders.TemplateFolder, *folder);
  if (copy.isStopped) return;
  const Status<> opened = services.workspace.OpenFile(*folder);
  if (!opened.ok()) services.ui.ShowMessage(services.strings.Format("errOpen", {opened.error()}));
  TellUncopied(services, copy);
}

void Import(CommandContext& context) {
  const std::optional<fs::path> folder = AskFolder(context.services, "Choose a templates folder");
  if (!folder) return;
  const files::TemplateCopy copy = Copy(context, *folder, context.globals.folders.TemplateFolder);
  if (!copy.isStopped) TellUncopied(context.services, copy);
}

void CarryOut(CommandContext& context, const TemplateWish& wish) {
  switch (wish.kind) {
    case TemplateWish::Kind::Delete:
    case TemplateWish::Kind::AskAndDelete:
      return Delete(context, wish);
    case TemplateWish::Kind::Export:
      return Export(context);
    case TemplateWish::Kind::Import:
      return Import(context);
    case TemplateWish::Kind::Insert:
      return InsertTemplate(context, wish.name);
  }
}

void InsertByNumber(CommandContext& context) {
  const Services& services = context.services;
  const auto names = files::TemplateNames(context.globals.folders.TemplateFolder);
  if (!names.ok()) return services.ui.ShowMessage(names.error());
  for (const std::string& name : *names) {
    if (files::NumberOfName(name) == context.argument) return InsertTemplate(context, name);
  }
  services.ui.ShowMessage(services.strings.Text("errTemplateGone"));
}

}  // namespace

std::int64_t SaveAsTemplate(TransformContext& context) {
  const Services& services = context.services;
  const std::optional<std::string> name = AskName(services);
  if (!name) return 0;
  std::size_t picturesLeft = 0;
  ConverImages2Base64(context.document->Root(), [&](std::string_view problem) {
    ++picturesLeft;
    services.log.Write(fmt::format("error: {}", problem));
  });
  const std::string body = content::XmlToHtml(context.document->Xml());
  const Status<> saved = files::SaveTemplate(
      context.globals.folders.TemplateFolder, *name,
      fmt::format("{}{}{}", context.globals.FragmentHead, body, context.globals.FragmentTail));
  if (!saved.ok()) {
    services.ui.ShowMessage(WithReason(services.strings.Text("msgSaveTemplateFailure"), saved.error()));
  } else if (picturesLeft > 0) {
    services.ui.ShowMessage(
        WithReason(services.strings.Text("msgSaveTemplateSuccess"),
                   services.strings.Format("strTemplatePicturesLeft", {std::to_string(picturesLeft)})));
  } else {
    services.ui.ShowMessage(services.strings.Text("msgSaveTemplateSuccess"));
  }
  return 0;
}

void InsertTemplate(CommandContext& context, std::string_view name) {
  const Services& services = context.services;
  const Result<std::string> html = files::ReadTemplate(context.globals.folders.TemplateFolder, name);
  if (!html.ok())
    return services.ui.ShowMessage(WithReason(services.strings.Text("errReadTemplate"), html.error()));
  NSOneNoteMain(context.services, context.globals)
      .RunInsertHtml(tools::FillDatePlaceholders(*html, services.clock.Now()));
}

void Template(CommandContext& context, const CommandRow&) {
  if (context.argument != 0) return InsertByNumber(context);
  TemplatesRequest request;
  request.folder = context.globals.folders.TemplateFolder;
  request.fill = [now = context.services.clock.Now()](std::string_view html) {
    return tools::FillDatePlaceholders(html, now);
  };
  while (const std::optional<TemplateWish> wish = platform::RunDialog(context.services.ui, request)) {
    CarryOut(context, *wish);
    if (wish->kind == TemplateWish::Kind::Insert) return;
  }
}

}  // namespace quill::shell
