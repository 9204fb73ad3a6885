#pragma once
#include <string>
#include <vector>

namespace quill::ui {

enum class RulerUnit { Pixels, Centimetres, Inches };

/// A display as a ruler sees it. Lengths on the screen are in logical pixels, as windows count them.
struct RulerDisplay {
  double dotsPerInch = 96;      ///< logical pixels on an inch of glass
  double devicePixelRatio = 1;  ///< the display's own pixels in a logical one
};

/// One line of a ruler. `rank` is 0 for the shortest lines, 1 for those half-way, 2 for those with a number.
struct RulerTick {
  double at = 0;  ///< logical pixels from the ruler's beginning
  int rank = 0;
  std::string label;  ///< only for rank 2
};

/// The display that a screen describes. Some screens say 0 or nonsense about their size in the world; then
/// `logicalDpi`, what the system assumes, is taken.
RulerDisplay DescribeDisplay(double physicalDpi, double logicalDpi, double devicePixelRatio);

/// How many logical pixels a unit is long. A pixel is one of the display's own.
double LogicalPerUnit(RulerUnit unit, const RulerDisplay& display);

/// The lines from 0 to `length`. Never closer than 3.5 logical pixels; numbers never so close that
/// they would touch.
std::vector<RulerTick> RulerTicks(RulerUnit unit, double length, const RulerDisplay& display);

/// A place on the ruler in words: "128 px", "3.39 cm", "1.333 in". Numbers have a decimal point in every
/// language.
std::string RulerReading(RulerUnit unit, double at, const RulerDisplay& display);

}  // namespace quill::ui
