#pragma once
#include <string>
#include <variant>
#include <vector>

namespace quill::platform::script {

/// Modifier words of the script language. `command` is Control and `option` is Alt where keyboards
/// have no such keys.
struct Modifiers {
  bool command = false;
  bool control = false;
  bool option = false;
  bool shift = false;

  bool operator==(const Modifiers&) const = default;
};

/// "delay S": an upper bound on the wait for what the step before it has set going.
struct Delay {
  double seconds;
  bool operator==(const Delay&) const = default;
};

/// "activate" inside "tell application A": bring it to the front.
struct Activate {
  std::string application;  ///< as written: a bundle path or a name
  bool operator==(const Activate&) const = default;
};

/// "reopen" inside "tell application A": show its window again if it has none.
struct Reopen {
  std::string application;
  bool operator==(const Reopen&) const = default;
};

/// "keystroke T using {…}" inside "tell process P".
struct Keystroke {
  std::string process;
  std::string text;
  Modifiers modifiers;
  bool operator==(const Keystroke&) const = default;
};

/// "key code N using {…}" inside "tell process P"; N is a Carbon virtual key code.
struct KeyCode {
  std::string process;
  int code;
  Modifiers modifiers;
  bool operator==(const KeyCode&) const = default;
};

/// "open location U" inside "tell application A".
struct OpenLocation {
  std::string application;
  std::string url;
  bool operator==(const OpenLocation&) const = default;
};

/// "run VB macro macro name M" inside "tell application A".
struct RunMacro {
  std::string application;
  std::string macro;
  bool operator==(const RunMacro&) const = default;
};

using Step = std::variant<Delay, Activate, Reopen, Keystroke, KeyCode, OpenLocation, RunMacro>;

/// A script as the steps it performs, in order.
using Program = std::vector<Step>;

/// Carbon virtual key codes that the built-in scripts use.
inline constexpr int kKeyCodeDelete = 51;
inline constexpr int kKeyCodeDownArrow = 125;

}  // namespace quill::platform::script
