#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"

namespace quill::practice {

/// A page as lists show it.
struct LibraryPage {
  std::string guid;  ///< "{8-4-4-4-12}" in upper case, as client links name it
  std::string title;
  int level = 0;  ///< 0 is top
  int order = 0;  ///< within its section
};

struct LibrarySection {
  std::string guid;  ///< likewise
  std::string name;
  std::vector<std::string> groups;  ///< the section groups that it lies in, outermost first
  std::vector<LibraryPage> pages;
};

struct LibraryNotebook {
  std::string guid;
  std::string name;
  bool isDefault = false;
  bool isShared = false;  ///< shared notebooks belong to another account
  std::string accountId;  ///< the account part of its client links
  std::vector<LibrarySection> sections;
};

/// A page with its content: `body` is the inner HTML of what stands below the title.
struct LibraryContent {
  std::string title;
  std::string body;

  bool operator==(const LibraryContent&) const = default;
};

/// The notebooks that the service serves. The service calls it from one thread at a time.
class NotebookLibrary {
 public:
  virtual ~NotebookLibrary() = default;

  /// Everything there is, as it is now.
  virtual std::vector<LibraryNotebook> Notebooks() = 0;

  /// The content of the page with this id. Fails when it is not there or cannot be read.
  virtual Result<LibraryContent> Load(std::string_view pageGuid) = 0;

  virtual Status<> Save(std::string_view pageGuid, const LibraryContent& content) = 0;
};

}  // namespace quill::practice
