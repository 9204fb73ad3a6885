#include "shell/script_table.h"

namespace quill::shell {
namespace {

constexpr std::string_view kDelay = "delay 0.5\n";
constexpr std::string_view kShowOneNote =
    "tell application \"/Applications/Microsoft OneNote.app\"\nreopen\nactivate\nend tell";
constexpr std::string_view kKeysBegin =
    "tell application \"System Events\"\ntell process \"Microsoft OneNote\"\n";
constexpr std::string_view kKeysEnd = "\nend tell\nend tell\ndelay 0.5";

enum class ExtraDelay { No, Yes };

std::string OneNoteScript(std::string_view keyLines, ExtraDelay extra = ExtraDelay::No) {
  std::string text;
  text.append(kDelay).append(kShowOneNote).append("\n");
  if (extra == ExtraDelay::Yes) text.append(kDelay);
  text.append(kKeysBegin).append(keyLines).append(kKeysEnd);
  return text;
}

/// Replaces each "%@" in turn by the next of `values`; inserted text is not looked through again.
std::string Fill(std::string_view format, std::initializer_list<std::string_view> values) {
  std::string result;
  for (std::string_view value : values) {
    const std::size_t at = format.find("%@");
    if (at == std::string_view::npos) break;
    result.append(format.substr(0, at)).append(value);
    format.remove_prefix(at + 2);
  }
  return result.append(format);
}

}  // namespace

ScriptTable BuiltInScripts() {
  ScriptTable scripts;
  scripts.ScriptActivate = std::string(kDelay).append(kShowOneNote);
  scripts.ScriptPasteReplacing = OneNoteScript("key code 51\nkeystroke \"v\" using {command down}");
  scripts.ScriptPasteAtCaret =
      OneNoteScript("keystroke \" \"\nkey code 51\nkeystroke \"v\" using {command down}");
  scripts.ScriptCopy = OneNoteScript("keystroke \"c\" using {command down}", ExtraDelay::Yes);
  scripts.ScriptCommandO = OneNoteScript(
      "keystroke \"o\" using {command down}\ndelay 0.5\nkey code 125 using option down", ExtraDelay::Yes);
  scripts.ScriptCopyPageLink = OneNoteScript("keystroke \"p\" using {command down, control down}");
  scripts.ScriptKeystroke2 = OneNoteScript("keystroke \"%@\" using {%@ down, %@ down}");
  scripts.ScriptKeystroke1 = OneNoteScript("keystroke \"%@\" using {%@ down}");
  scripts.ScriptWordExport =
      "delay 0.5\n"
      "tell application \"Microsoft Word\"\nreopen\nactivate\nend tell\n"
      "tell application \"System Events\"\ntell process \"Microsoft Word\"\n"
      "keystroke \"n\" using {command down}\ndelay 0.5\nkeystroke \"v\" using {command down}\n"
      "end tell\nend tell";
  scripts.ScriptOpenLocation =
      "tell application \"Microsoft OneNote\"\nopen location \"%@\"\nactivate\nend tell\n";
  return scripts;
}

std::string FillKeystroke(const ScriptTable& scripts, std::string_view key, std::string_view modifier1,
                          std::string_view modifier2) {
  if (modifier2.empty()) return Fill(scripts.ScriptKeystroke1, {key, modifier1});
  return Fill(scripts.ScriptKeystroke2, {key, modifier1, modifier2});
}

std::string FillOpenLocation(const ScriptTable& scripts, std::string_view link) {
  std::string safe;
  safe.reserve(link.size());
  for (const char c : link) {
    if (c == '"') {
      safe += "%22";
    } else if (c == '\\') {
      safe += "%5C";
    } else if (static_cast<unsigned char>(c) >= 0x20 && c != 0x7f) {
      safe += c;
    }
  }
  return Fill(scripts.ScriptOpenLocation, {safe});
}

}  // namespace quill::shell
