#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quill::shell {

/// A text in the form in which it is searched: case, diacritics and width are folded away, punctuation is a
/// single space, apostrophes and invisible characters are gone, nothing stands before the first or after the
/// last word.
struct SearchText {
  std::u32string letters;

  /// For each letter, where in the source its character begins and ends, in UTF-16 units. Marks that were
  /// folded away belong to the letter before them.
  std::vector<std::uint32_t> begins, ends;

  /// Indices of the letters that begin a word. Chinese and Japanese do not separate words: every character
  /// of theirs counts as a beginning.
  std::vector<std::uint32_t> words;

  /// The letters from the beginning of word `index` to the next space.
  std::u32string_view Word(std::size_t index) const;

  /// How many letters word `index` has before the next word begins or a space follows.
  std::size_t WordLength(std::size_t index) const;
};

/// Folds a text, character by character: compatibility decomposition and full case folding, as Unicode
/// defines them, without accents; "ø", "ł", "æ" and their like, which do not decompose, become what people
/// without these keys type. Bytes that are not UTF-8 are a space. O(text).
SearchText FoldForSearch(std::string_view text);

}  // namespace quill::shell
