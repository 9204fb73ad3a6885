#include "ui/windows/tables/table_style_name.h"

#include <QColor>

#include "ui/kit/qt_text.h"

namespace quill::ui {
namespace {

struct Hue {
  int end;  ///< the first degree that is not of this colour
  std::string_view key;
};

constexpr Hue kHues[] = {
    {15, "strColorRed"},   {45, "strColorOrange"},  {165, "strColorGreen"}, {205, "strColorTurquoise"},
    {245, "strColorBlue"}, {330, "strColorPurple"}, {360, "strColorRed"},
};

std::string_view ColorKey(std::string_view name) {
  const QColor color(ToQt(name));
  if (color.lightness() == 0) return "strColorBlack";
  if (color.lightness() == 255) return "strColorWhite";
  const int hue = color.hslHue();  // −1 for greys
  for (const Hue& one : kHues) {
    if (hue >= 0 && hue < one.end) return one.key;
  }
  return "strColorGrey";
}

}  // namespace

std::string TableStyleName(const shell::StringTable& strings, int number, const tools::TableStyle& style) {
  const auto color = [&](std::string_view name) { return std::string(strings.Text(ColorKey(name))); };
  std::string parts;
  if (!style.headerRow.empty())
    parts += strings.Format("strTableStyleHeader", {color(style.headerRow)}) + ", ";
  if (!style.firstColumn.empty())
    parts += strings.Format("strTableStyleFirstColumn", {color(style.firstColumn)}) + ", ";
  const std::string odd = color(style.oddRows);
  const std::string even = color(style.evenRows);
  parts += odd == even ? strings.Format("strTableStyleShades", {odd})
                       : strings.Format("strTableStyleRows", {odd, even});
  return strings.Format("strTableStyleName", {std::to_string(number), parts});
}

}  // namespace quill::ui
