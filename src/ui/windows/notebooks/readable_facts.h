#pragma once
#include <QString>
#include <vector>

#include "online/notebook_facts.h"
#include "shell/string_table.h"

namespace quill::ui {

/// A line of the information about a notebook.
struct ReadableFact {
  QString name;
  QString value;
  bool isLink = false;  ///< of the web or of OneNote
};

/// What the service said, as a reader wants it: what is known has a name in words and stands first, times are
/// in the user's zone and manner, everything else is as it came.
std::vector<ReadableFact> ReadableFacts(const shell::StringTable& strings,
                                        const std::vector<online::NotebookFact>& facts);

}  // namespace quill::ui
