#include "content/color_hex.h"

#include <fmt/format.h>

#include <algorithm>

namespace quill::content {
namespace {

/// The largest single-precision number below 256, so that 1.0 is 255.
constexpr double kSteps = 255.99998474121094;

int Step(double fraction) {
  return static_cast<int>(std::clamp(fraction, 0.0, 1.0) * kSteps);
}

}  // namespace

std::string ColorToHex(double red, double green, double blue) {
  return fmt::format("#{:02x}{:02x}{:02x}", Step(red), Step(green), Step(blue));
}

}  // namespace quill::content
