#pragma once
#include <cstdint>
#include <functional>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <string_view>

namespace quill::tools {

/// The lookup dialog: given a word it gives the transcription, or nothing when it was closed without one.
using AskForPhonetic = std::function<std::optional<std::string>(const std::string& word)>;

/// Asks for the transcription of the first text below `element` that is not only white space, and sets it as
/// " (…) " in a Calibri span behind that text. 1 when the document changed; 0 when there is no text (nobody
/// is asked) or no transcription. Without recursion, O(nodes up to the text).
std::int64_t InsertPhonestics(pugi::xml_node element, const AskForPhonetic& ask);

/// What became of a fragment or a word.
struct PhoneticInsertion {
  std::int64_t result = 0;       ///< positive: `html` is to be inserted
  std::string html;              ///< empty otherwise
  bool isNotWellFormed = false;  ///< the fragment could not be parsed; nobody was asked
};

/// For a text without "<", which is a word: word, blank, the transcription in parentheses, blank, nothing
/// escaped. For a fragment: the same fragment after `InsertPhonestics`.
PhoneticInsertion InsertPhonetics(std::string_view fragmentOrWord, const AskForPhonetic& ask);

}  // namespace quill::tools
