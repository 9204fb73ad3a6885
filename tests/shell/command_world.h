#pragma once
#include <string>
#include <string_view>

#include "platform/clock.h"
#include "platform/recording/recording.h"
#include "shell/globals.h"
#include "shell/onenote_main.h"
#include "shell/services.h"

namespace quill::test {

/// A selection as OneNote's application copies it: the fragment inside a document of its own.
inline platform::recording::Contents Copied(std::string_view fragment, std::string_view text = "") {
  std::string html("<html><head></head><body>\r\n<!--StartFragment-->");
  html.append(fragment).append("<!--EndFragment-->\r\n</body></html>");
  return {html, std::string(text), std::nullopt};
}

/// A recorded desktop with everything that a command needs around it.
struct CommandWorld {
  explicit CommandWorld(platform::recording::Contents selection = {}) : recording(std::move(selection)) {
    globals.scripts = shell::BuiltInScripts();
    recording.SetClipboard({std::nullopt, "the user's own", std::nullopt});
    recording.NameScript(globals.scripts.ScriptCopy, "copy");
    recording.NameScript(globals.scripts.ScriptPasteReplacing, "paste-replacing");
    recording.NameScript(globals.scripts.ScriptPasteAtCaret, "paste-at-caret");
  }

  /// The fragment of the one paste that there was; what went wrong otherwise.
  std::string PastedFragment() const {
    if (recording.pastes().size() != 1) return "pastes: " + std::to_string(recording.pastes().size());
    const std::string html = recording.pastes()[0].contents.html.value_or("no HTML");
    const std::size_t start = html.find("<!--StartFragment-->");
    const std::size_t end = html.find("<!--EndFragment-->");
    if (start == std::string::npos || end == std::string::npos) return html;
    return html.substr(start + 20, end - start - 20);
  }

  platform::recording::Recording recording;
  platform::FixedClock clock{std::chrono::system_clock::time_point{}};
  shell::StringTable strings;
  shell::Explain explain;
  shell::Log log;
  shell::Globals globals;
  shell::Services services{recording, recording, recording, recording, clock, strings, explain, log};
};

}  // namespace quill::test
