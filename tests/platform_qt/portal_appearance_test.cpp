#include "platform/qt/portal_appearance.h"

#include <gtest/gtest.h>

#include "platform_qt/fake_portal.h"

namespace quill::portal_test {
namespace {

using platform::qt::ColorScheme;
using platform::qt::PortalAppearance;

class PortalAppearanceTest : public testing::Test {
 protected:
  bool Told(const std::vector<ColorScheme>& expected) {
    return Happens([&] { return told.size() >= expected.size(); }) && told == expected;
  }

  Connection program;
  FakePortal portal;
  std::vector<ColorScheme> told;
  PortalAppearance appearance{[this](ColorScheme scheme) { told.push_back(scheme); }};
};

// The windows are dark when the desktop is, from the start and when the user switches.
TEST_F(PortalAppearanceTest, TheDesktopsChoiceIsFollowed) {
  portal.colorScheme = 1;
  portal.Appear();
  appearance.Start(program.get());
  EXPECT_TRUE(Told({ColorScheme::Dark}));
  portal.ChangeSetting(QStringLiteral("org.freedesktop.appearance"), QStringLiteral("accent-color"), 2u);
  portal.ChangeSetting(QStringLiteral("org.example"), QStringLiteral("color-scheme"), 2u);
  portal.ChangeColorScheme(1);
  portal.ChangeColorScheme(2);
  portal.ChangeColorScheme(0);
  portal.ChangeColorScheme(1);
  portal.ChangeColorScheme(77);
  EXPECT_TRUE(Told({ColorScheme::Dark, ColorScheme::Light, ColorScheme::NoPreference, ColorScheme::Dark,
                    ColorScheme::NoPreference}));
}

// Without a portal, or with one that talks nonsense, the choice of the toolkit stands; a late portal is
// heard.
TEST_F(PortalAppearanceTest, NothingIsToldUntilThereIsAChoice) {
  appearance.Start(program.get());
  portal.manners.garbage = true;
  portal.Appear();
  ASSERT_TRUE(Happens([&] { return !portal.log.empty(); }));
  portal.manners.garbage = false;
  portal.colorScheme = 2;
  portal.Disappear();
  portal.Appear();
  EXPECT_TRUE(Told({ColorScheme::Light}));
}

}  // namespace
}  // namespace quill::portal_test
