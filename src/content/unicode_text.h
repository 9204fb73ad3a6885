#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quill::content {

/// One decoded character: its code point and how many bytes it took. `length` is 0 where the bytes are not
/// UTF-8 (overlong forms, surrogates and codes above U+10FFFF included) or the text ends.
struct DecodedChar {
  char32_t code = 0;
  std::size_t length = 0;
};

/// The character at byte `at`. O(1).
DecodedChar DecodeUtf8(std::string_view text, std::size_t at);

/// Appends a character; surrogate halves and codes above U+10FFFF become U+FFFD.
void AppendUtf8(std::string& out, char32_t code);

/// Whether the text is UTF-8 throughout. O(text).
bool IsValidUtf8(std::string_view text);

/// Space separators and TAB: what "blanks" means where line breaks must survive.
bool IsBlank(char32_t code);

/// LF, VT, FF, CR, U+0085, U+2028 and U+2029.
bool IsNewline(char32_t code);

/// The text without blanks at both ends; line breaks stay. O(text).
std::string_view TrimBlanks(std::string_view text);

/// The text without blanks and line breaks at both ends. O(text).
std::string_view TrimWhite(std::string_view text);

/// The pieces between the line breaks, empty ones included. Each break character separates on its own, so
/// CR LF leaves an empty piece between. At least one piece. O(text).
std::vector<std::string_view> SplitAtNewlines(std::string_view text);

/// UTF-16 of a text and back; what is not valid becomes U+FFFD. O(text).
std::u16string ToUtf16(std::string_view text);
std::string ToUtf8(std::u16string_view text);

/// Decodes each valid %XX; any other "%" stays. "" when the bytes would not be UTF-8. O(text).
std::string PercentUnescape(std::string_view text);

/// Escapes every byte except A-Z a-z 0-9 and !$&'()*+,-./:;=?@_~ ; "%" is escaped again. O(text).
std::string PercentEscape(std::string_view text);

/// Skips white space, reads a sign and leading digits and ignores the rest; saturates. 0 without digits.
std::int64_t LeadingInteger(std::string_view text);

/// Full Unicode case mapping without a language: "ß" becomes "SS", a final "Σ" becomes "ς". O(text).
std::string ToLower(std::string_view text);
std::string ToUpper(std::string_view text);

}  // namespace quill::content
