#pragma once
#include <string>
#include <string_view>

namespace quill::shell {

/// The AppleScript texts by which the program drives other applications. Writable: a test, or a user
/// whose OneNote has other keys, can put another text in.
struct ScriptTable {
  std::string ScriptActivate;
  std::string ScriptPasteReplacing;  ///< Delete, then Command+V
  std::string ScriptPasteAtCaret;  ///< a blank typed and deleted first: no character before the caret is lost
  std::string ScriptCopy;
  std::string ScriptCommandO;
  std::string ScriptCopyPageLink;  ///< Control+Command+P
  std::string ScriptKeystroke2;    ///< template: key, modifier, modifier
  std::string ScriptKeystroke1;    ///< template: key, modifier
  std::string ScriptWordExport;    ///< new document in Word, Command+V
  std::string ScriptOpenLocation;  ///< template: link
};

/// The built-in texts; lines are joined by LF, and only `ScriptOpenLocation` ends in one.
ScriptTable BuiltInScripts();

/// `ScriptKeystroke1` or `ScriptKeystroke2` filled. Key and modifiers are fixed words of this program.
std::string FillKeystroke(const ScriptTable& scripts, std::string_view key, std::string_view modifier1,
                          std::string_view modifier2 = {});

/// `ScriptOpenLocation` filled with a link from outside: a double quote becomes %22, a backslash %5C,
/// control characters go, so that the link cannot end the script's string.
std::string FillOpenLocation(const ScriptTable& scripts, std::string_view link);

}  // namespace quill::shell
