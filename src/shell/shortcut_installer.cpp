#include "shell/shortcut_installer.h"

#include "files/update/copy_link_shortcut.h"
#include "files/update/copy_link_titles.h"
#include "platform/posix/link_handler.h"

namespace quill::shell {

void InstallCopyLinkShortcut(CommandContext& context) {
  // A program named "defaults" may be there on other systems, too.
  if (!platform::UsesDesktopEntries()) return WriteCopyLinkShortcut(context);
  context.services.ui.ShowMessage(context.services.strings.Text("msgShortcutNotHere"));
}

void WriteCopyLinkShortcut(CommandContext& context) {
  Services& services = context.services;
  if (services.desktop.OneNoteRunning()) {
    services.ui.ShowMessage(
        "Found the OneNote app is running. Please restart OneNote after the installation is complete.");
  }
  const std::string language = files::LanguageWithScript(services.engines.preferredLanguage);
  const Status<> installed = files::InstallCopyLinkShortcut(
      *services.engines.processes, files::CopyLinkTitle(language), context.globals.folders.SupportFolder);
  if (installed.ok()) return;
  services.ui.ShowMessage(services.strings.Format("errShortcutInstall", {installed.error()}));
}

}  // namespace quill::shell
