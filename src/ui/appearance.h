#pragma once
#include <QPalette>
#include <functional>

#include "platform/qt/portal_appearance.h"

namespace quill::ui {

/// Follows the desktop's choice between dark and light where Qt itself does not know it: on Linux desktops
/// that tell it through the portal only. A style that is dark already is left alone. GUI thread.
class Appearance {
 public:
  /// `atStart` is told the desktop's first answer; a change of mind later is not its business.
  explicit Appearance(std::function<void(bool dark)> atStart);

  /// Begins to follow; asks the desktop without waiting.
  void Start() { m_portal.Start(); }

 private:
  void Use(platform::qt::ColorScheme scheme);

  std::function<void(bool dark)> m_atStart;
  QPalette m_own;  ///< the style's palette, as it was at start
  platform::qt::PortalAppearance m_portal;
};

/// A dark palette with the contrast of the light one, for styles that draw with the palette's colours.
QPalette DarkPalette();

}  // namespace quill::ui
