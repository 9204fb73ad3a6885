#pragma once
#include <string>

namespace quill::content {

/// "#" and two lower-case hex digits each for red, green and blue, given as fractions. The range 0 to 1 is
/// split into 256 equal steps (0.5 is 7f); what lies outside is taken as 0 or 1.
std::string ColorToHex(double red, double green, double blue);

}  // namespace quill::content
