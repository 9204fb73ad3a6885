#pragma once

namespace quill::shell {

/// One language's texts, as the JSON object of resources/strings/<language>.json.
struct EmbeddedStrings {
  const char* language;
  const char* json;
};

/// All languages that were compiled in.
extern const EmbeddedStrings kEmbeddedStrings[];
extern const int kEmbeddedStringsCount;

}  // namespace quill::shell
