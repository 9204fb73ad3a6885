#pragma once
#include <QPalette>

namespace quill::ui {

/// True for a palette that writes light on dark.
inline bool IsDark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() < 128;
}

}  // namespace quill::ui
