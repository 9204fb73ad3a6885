#pragma once
#include <string>
#include <string_view>

namespace quill::tools {

/// The text that was recognised in the first picture of a copied page: the `alt` value of the first "<img",
/// its references decoded. Empty when there is no such tag or value. O(html).
std::string ImageAltText(std::string_view html);

/// Takes out the blanks that recognition puts between characters outside ASCII, and a blank in front of a
/// line break that an ASCII character follows. A blank beside an ASCII character otherwise stays. O(text).
std::string ClearExtraSpaces(std::string_view text);

/// Joins lines that recognition broke, and breaks after sentences.
///
/// Line feeds go. A carriage return becomes a blank, or nothing beside white space; two of them with one
/// character between, an empty line, become a line feed each. "." and "!", also full-width, get a line feed
/// when white space follows. Sees carriage returns only: a text whose lines end in a bare line feed loses
/// its line breaks. What is not UTF-8 becomes U+FFFD. O(text).
std::string MergeAsParagraph(std::string_view text);

}  // namespace quill::tools
