#pragma once
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "online/page_scanner.h"

namespace quill::online {

/// The text of one block as it is shown, and where in the source each of its characters stands.
///
/// White space of the source is one blank, however long and in however many texts, and nothing at the
/// beginning and at the end. A reference is the character that it stands for; one that nobody knows is a
/// character that equals no other, so that nothing is found within it.
class BlockText {
 public:
  /// Takes in the text that follows. O(range).
  void Append(std::string_view html, SourceRange range);
  /// No text follows.
  void Finish();
  void Clear();

  const std::u32string& Codes() const { return m_codes; }

  /// What has to go from the source for the characters from `first` up to `last` to go, in order, neighbours
  /// joined. At least one range for at least one character. O(result).
  std::vector<SourceRange> RangesOf(std::size_t first, std::size_t last) const;

 private:
  void AddChar(char32_t code, SourceRange where);
  void AddSpace(SourceRange where);

  std::u32string m_codes;
  std::vector<std::size_t> m_firstRange;  ///< of each character
  std::vector<SourceRange> m_ranges;
};

/// What a reference stands for; the text begins with its "&".
struct PageReference {
  char32_t code = 0;
  std::size_t length = 0;  ///< with "&" and ";"
};

/// A code that is none, for what is not known.
inline constexpr char32_t kUnknownChar = 0x110000;

/// Names of HTML's Latin-1 set, those of common typographic characters, XML's own, and numbers. What is no
/// reference is an "&" by itself. O(reference).
PageReference ReadReference(std::string_view text);

}  // namespace quill::online
