#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QClipboard>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QTextBrowser>

#include "base/version.h"
#include "gui_world.h"
#include "shell/window_requests.h"
#include "ui/kit/qt_text.h"
#include "ui/windows/win_about.h"

namespace quill::ui {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

struct AboutWindow : testing::Test {
  MWinAbout* Show() {
    const auto make = [this] {
      return new MWinAbout(
          world.strings,
          {"/data/Library/Quill Menu/Settings.plist", "/data/Library/Quill Menu", LicenseText(),
           ThirdPartyNotices(), [this](const std::filesystem::path& path) { shown.push_back(path); }});
    };
    ShowOne<MWinAbout>(make);
    return WaitForWindow<MWinAbout>();
  }
  static void PressButton(const QWidget& window, const char* text) {
    for (auto* button : window.findChildren<QPushButton*>()) {
      if (button->isVisible() && FromQt(button->text()) == text) return button->click();
    }
    ADD_FAILURE() << "no button " << text;
  }
  GuiWorld world;
  std::vector<std::filesystem::path> shown;
};

// A problem report needs the version and the system; the user gets them with one button.
TEST_F(AboutWindow, TellsVersionLicenceAndSystem) {
  MWinAbout* window = Show();
  ASSERT_NE(window, nullptr);
  std::vector<std::string> texts;
  for (auto* label : window->findChildren<QLabel*>()) texts.push_back(FromQt(label->text()));
  EXPECT_THAT(texts, Contains(std::string("Version ") + kVersion));
  EXPECT_THAT(texts, Contains("MIT License"));
  EXPECT_THAT(texts, Contains("/data/Library/Quill Menu/Settings.plist"));
  PressButton(*window, "Show Folder");
  EXPECT_THAT(shown, ElementsAre("/data/Library/Quill Menu"));
  PressButton(*window, "Copy All");
  const std::string facts = FromQt(QApplication::clipboard()->text());
  EXPECT_THAT(facts, HasSubstr(kVersion));
  EXPECT_THAT(facts, HasSubstr(qVersion()));
  EXPECT_THAT(facts, HasSubstr(FromQt(QGuiApplication::platformName())));
  EXPECT_EQ(Show(), window) << "one is enough";
}

// The licences of what the program is built on ask to be shown with it, on every installation.
TEST_F(AboutWindow, CarriesTheLicenceAndTheNotices) {
  EXPECT_THAT(FromQt(LicenseText()), HasSubstr("Permission is hereby granted"));
  EXPECT_THAT(FromQt(ThirdPartyNotices()), HasSubstr("Qt 6"));
  MWinAbout* window = Show();
  ASSERT_NE(window, nullptr);
  auto* tabs = window->findChild<QTabWidget*>();
  for (int i = 0; i < tabs->count(); ++i) {
    tabs->setCurrentIndex(i);
    EXPECT_THAT(UnnamedControls(*window), IsEmpty()) << i;
    Picture(*window, "about-" + std::to_string(i));
  }
  EXPECT_THAT(FromQt(window->findChild<QTextBrowser*>()->toPlainText()), HasSubstr("pugixml"));
  Press(Qt::Key_Escape);
  EXPECT_TRUE(WaitUntil([] { return OpenWindow() == nullptr; }));
}

}  // namespace
}  // namespace quill::ui
