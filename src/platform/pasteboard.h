#pragma once
#include <chrono>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"

namespace quill::platform {

/// The forms in which the program reads and writes the general pasteboard.
enum class Flavour { Html, Text, Png };

/// One form of the pasteboard's contents under the platform's own name for it (a UTI or a MIME type).
struct FlavourData {
  std::string name;
  std::string bytes;
};

/// Everything that was on the pasteboard at one moment, in the owner's order.
struct PasteboardSnapshot {
  std::vector<FlavourData> flavours;
  bool complete = true;  ///< false when the owner did not hand over some form in time
};

/// Why a read yielded nothing.
enum class ReadProblem {
  Absent,       ///< nobody has put this form there
  OwnerSilent,  ///< the owning application did not hand it over in time
  TooLarge,     ///< more than the backend is willing to take (see its header)
};

/// The general pasteboard (clipboard). Called from the command thread only.
class Pasteboard {
 public:
  virtual ~Pasteboard() = default;

  /// Forgets what is there: until somebody writes, every read yields `Absent`.
  virtual void Clear() = 0;

  /// Waits until somebody else has written since the last `Clear` or `Write…`; false at the deadline.
  virtual bool WaitForNewContents(std::chrono::milliseconds deadline) = 0;

  /// The contents in one form. HTML and text are UTF-8.
  virtual Result<std::string, ReadProblem> Read(Flavour flavour) = 0;

  /// Replaces the contents by one form. False when the platform refused.
  virtual bool Write(Flavour flavour, std::string_view bytes) = 0;

  /// Takes a copy of all forms, to be put back by `Restore`.
  virtual PasteboardSnapshot Save() = 0;

  /// Puts a copy back, unless somebody else has written since this program's last `Clear` or `Write`,
  /// or since the target application's own copy that a script asked for. Waits first, with a
  /// deadline of the backend's, until what was pasted last has been handed over.
  virtual void Restore(const PasteboardSnapshot& snapshot) = 0;

  /// The names of the forms that are there now, in the owner's order.
  virtual std::vector<std::string> FlavourNames() = 0;
};

}  // namespace quill::platform
