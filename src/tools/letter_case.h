#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include <pugixml.hpp>

namespace quill::tools {

/// The case types, by the numbers of the commands that ask for them.
enum class CaseType : std::int64_t { Lower = 2, Upper = 3, Toggle = 4, CapitalizeWords = 5 };

/// Changes the case of every text below an element, in place. Lower and upper are full Unicode mappings
/// in the root locale; another type leaves the texts as they are.
///
/// Comments, processing instructions and empty elements stay untouched. Returns how many texts with
/// something other than white space were met: a positive number asks for pasting, also when no letter
/// changed. O(document).
std::int64_t ChangeCase(pugi::xml_node element, CaseType type);

/// Upper-case ASCII letters become lower case, all others upper case. Works on UTF-16 units and keeps
/// the low 8 bits of each (a unit whose low 8 bits are 0 vanishes), so text outside Latin-1 does not
/// survive. O(text).
std::string ToggleCase(std::string_view text);

/// The first unit of each word in ASCII upper case, the rest in lower case. White space and ";" end a
/// word; the unit after it starts one whatever it is, so that a second blank uses the start up. 8-bit
/// units as in `ToggleCase`. O(text).
std::string CapitalizeEachWord(std::string_view text);

}  // namespace quill::tools
