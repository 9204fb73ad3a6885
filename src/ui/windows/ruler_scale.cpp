#include "ui/windows/ruler_scale.h"

#include <fmt/format.h>

#include <array>
#include <cmath>

namespace quill::ui {
namespace {

constexpr double kCentimetresPerInch = 2.54;
constexpr double kLeastGap = 3.5;       // logical pixels between two lines
constexpr double kLeastNumberGap = 30;  // room for "10000"
constexpr double kLeastDpi = 30;        // a wall of light bulbs
constexpr double kMostDpi = 1000;

/// How a unit is divided: the smallest step in units, steps to a half-way line, steps to a number.
struct Division {
  double step;
  int half;
  int number;
};

constexpr std::array kPixelDivisions = {Division{5, 5, 10}, Division{10, 5, 10}, Division{20, 5, 10},
                                        Division{50, 5, 10}, Division{100, 5, 10}};
constexpr std::array kCentimetreDivisions = {Division{0.1, 5, 10}, Division{0.5, 1, 2}, Division{1, 1, 2}};
constexpr std::array kInchDivisions = {Division{1.0 / 16, 4, 16}, Division{1.0 / 8, 4, 8},
                                       Division{1.0 / 4, 2, 4}};

template <std::size_t N>
Division Readable(const std::array<Division, N>& divisions, double perUnit) {
  for (const Division& division : divisions) {
    const double gap = division.step * perUnit;
    if (gap >= kLeastGap && gap * division.number >= kLeastNumberGap) return division;
  }
  return divisions.back();
}

Division ReadableDivision(RulerUnit unit, double perUnit) {
  switch (unit) {
    case RulerUnit::Centimetres:
      return Readable(kCentimetreDivisions, perUnit);
    case RulerUnit::Inches:
      return Readable(kInchDivisions, perUnit);
    case RulerUnit::Pixels:
      break;
  }
  return Readable(kPixelDivisions, perUnit);
}

}  // namespace

RulerDisplay DescribeDisplay(double physicalDpi, double logicalDpi, double devicePixelRatio) {
  const bool credible = physicalDpi >= kLeastDpi && physicalDpi <= kMostDpi;
  return {credible ? physicalDpi : logicalDpi, devicePixelRatio};
}

double LogicalPerUnit(RulerUnit unit, const RulerDisplay& display) {
  switch (unit) {
    case RulerUnit::Centimetres:
      return display.dotsPerInch / kCentimetresPerInch;
    case RulerUnit::Inches:
      return display.dotsPerInch;
    case RulerUnit::Pixels:
      break;
  }
  return 1 / display.devicePixelRatio;
}

std::vector<RulerTick> RulerTicks(RulerUnit unit, double length, const RulerDisplay& display) {
  const double perUnit = LogicalPerUnit(unit, display);
  const Division division = ReadableDivision(unit, perUnit);
  std::vector<RulerTick> ticks;
  for (int i = 0; i * division.step * perUnit <= length; ++i) {
    RulerTick tick{i * division.step * perUnit, 0, {}};
    if (i % division.number == 0) {
      tick.rank = 2;
      tick.label = fmt::format("{}", std::lround(i * division.step));
    } else if (i % division.half == 0) {
      tick.rank = 1;
    }
    ticks.push_back(std::move(tick));
  }
  return ticks;
}

std::string RulerReading(RulerUnit unit, double at, const RulerDisplay& display) {
  const double value = at / LogicalPerUnit(unit, display);
  switch (unit) {
    case RulerUnit::Centimetres:
      return fmt::format("{:.2f} cm", value);
    case RulerUnit::Inches:
      return fmt::format("{:.3f} in", value);
    case RulerUnit::Pixels:
      break;
  }
  return fmt::format("{} px", std::lround(value));
}

}  // namespace quill::ui
