#include "ui/kit/color_popover.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QColorDialog>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QTest>
#include <set>

#include "gui_world.h"
#include "ui/kit/qt_text.h"

namespace quill::ui {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ColorButtonTest : public testing::Test {
 protected:
  ColorButtonTest() : button(new ColorButton(world.strings, QStringLiteral("Frame colour"))) {
    auto* row = new QHBoxLayout(&window);
    row->addWidget(button);
    row->addStretch();
    QObject::connect(button, &ColorButton::ColorChanged,
                     [this](const QColor& color) { changes.push_back(FromQt(ColorHex(color))); });
    window.resize(320, 60);
    window.show();
    window.activateWindow();
    button->setFocus();
    EXPECT_TRUE(WaitUntil([this] { return window.isActiveWindow() && button->hasFocus(); }));
  }

  ColorPopover* OpenPopover() {
    Press(Qt::Key_Space);
    EXPECT_TRUE(WaitUntil([] { return OpenWindow<ColorPopover>() != nullptr; }));
    return OpenWindow<ColorPopover>();
  }

  static bool Closed() {
    return WaitUntil([] { return OpenWindow<ColorPopover>() == nullptr; });
  }

  /// Presses a key in the popover, which has the keyboard while it is open.
  static void PressIn(ColorPopover* popover, Qt::Key key) {
    QWidget* focus = popover->focusWidget() != nullptr ? popover->focusWidget() : popover;
    QTest::keyClick(focus, key);
  }

  GuiWorld world;
  QWidget window;
  ColorButton* button;
  std::vector<std::string> changes;
};

// A colour is stored as text; what is typed in any spelling is stored in one, and nonsense is not a colour.
TEST(ColorHex, ReadsAndWritesOneSpelling) {
  EXPECT_EQ(ColorHex(Qt::white), "#FFFFFF");
  EXPECT_EQ(ColorHex(QColor(1, 10, 171)), "#010AAB");
  for (int value = 0; value < 256; ++value) {
    const QColor grey(value, value, value);
    EXPECT_EQ(ColorFromHex(ColorHex(grey)), grey);
  }
  EXPECT_EQ(ColorFromHex(" ff8800 "), QColor(0xFF, 0x88, 0));
  EXPECT_EQ(ColorFromHex("#f80"), QColor(0xFF, 0x88, 0));
  for (const char* wrong : {"", "#", "#12", "#12345", "#1234567", "red", "#GGGGGG", "12 34 56"}) {
    EXPECT_EQ(ColorFromHex(wrong), std::nullopt) << wrong;
  }
}

// Forty different colours, black and white among them.
TEST(ColorPalette, HasNoColourTwice) {
  const auto colors = PaletteColors();
  const std::set<QRgb> different(colors.begin(), colors.end());
  EXPECT_EQ(different.size(), 40u);
  EXPECT_TRUE(different.contains(0xFFFFFF) && different.contains(0));
  EXPECT_EQ(colors.size() % kPaletteColumns, 0u);
}

// Someone without a mouse opens it, goes to a colour, takes it, and finds it among the last ones.
TEST_F(ColorButtonTest, IsUsedByKeyboardAlone) {
  EXPECT_EQ(FromQt(button->accessibleName()), "Frame colour #FFFFFF");
  ColorPopover* popover = OpenPopover();
  ASSERT_NE(popover, nullptr);
  EXPECT_THAT(UnnamedControls(*popover), IsEmpty());
  EXPECT_EQ(FromQt(popover->focusWidget()->accessibleName()), "#FFFFFF") << "the present colour";
  Picture(*popover, "color-popover");
  const bool mirrored = popover->layoutDirection() == Qt::RightToLeft;
  PressIn(popover, mirrored ? Qt::Key_Left : Qt::Key_Right);
  PressIn(popover, Qt::Key_Down);
  PressIn(popover, Qt::Key_Up);
  PressIn(popover, Qt::Key_Up);
  PressIn(popover, Qt::Key_Return);
  EXPECT_TRUE(Closed());
  EXPECT_THAT(changes, ElementsAre("#F2F2F2"));
  EXPECT_EQ(FromQt(button->accessibleName()), "Frame colour #F2F2F2");

  popover = OpenPopover();
  ASSERT_NE(popover, nullptr);
  for (int i = 0; i < 9; ++i) PressIn(popover, Qt::Key_Down);
  EXPECT_EQ(FromQt(popover->focusWidget()->accessibleName()), "#F2F2F2")
      << "the last row holds what was used";
  Picture(*popover, "color-popover-recent");
  PressIn(popover, Qt::Key_Escape);
  EXPECT_TRUE(Closed());
  EXPECT_EQ(changes.size(), 1u);
  EXPECT_TRUE(window.isVisible());
}

// A colour from a style guide is typed; a wrong one is not taken and the popover stays.
TEST_F(ColorButtonTest, TakesTypedHex) {
  ColorPopover* popover = OpenPopover();
  ASSERT_NE(popover, nullptr);
  auto* field = popover->findChild<QLineEdit*>();
  PressIn(popover, Qt::Key_Tab);
  ASSERT_TRUE(field->hasFocus());
  field->selectAll();
  QTest::keyClicks(field, "zz12");
  EXPECT_EQ(field->text(), "12");
  QTest::keyClick(field, Qt::Key_Return);
  EXPECT_TRUE(popover->isVisible());
  EXPECT_THAT(changes, IsEmpty());
  field->selectAll();
  QTest::keyClicks(field, "#1a73e8");
  QTest::keyClick(field, Qt::Key_Return);
  EXPECT_TRUE(Closed());
  EXPECT_THAT(changes, ElementsAre("#1A73E8"));
}

// All other colours are one button away, and nobody waits in a loop for them.
TEST_F(ColorButtonTest, OpensTheFullDialog) {
  ColorPopover* popover = OpenPopover();
  PressIn(popover, Qt::Key_Tab);
  PressIn(popover, Qt::Key_Tab);
  PressIn(popover, Qt::Key_Return);
  EXPECT_TRUE(Closed());
  ASSERT_TRUE(WaitUntil([] { return OpenWindow<QColorDialog>() != nullptr; }));
  auto* dialog = OpenWindow<QColorDialog>();
  dialog->setCurrentColor(QColor(0x12, 0x34, 0x56));
  dialog->accept();
  EXPECT_THAT(changes, ElementsAre("#123456"));
  Picture(window, "color-button");
}

// The last colours stay one row, newest first, each once.
TEST_F(ColorButtonTest, KeepsOneRowOfRecentColours) {
  std::vector<QColor> many;
  for (int i = 0; i < 20; ++i) many.emplace_back(i, 0, 0);
  button->SetRecent(many);
  EXPECT_EQ(button->recent().size(), 8u);
  ColorPopover* popover = OpenPopover();
  emit popover->Chosen(many[3]);
  popover->close();
  EXPECT_EQ(button->recent().front(), many[3]);
  EXPECT_EQ(button->recent().size(), 8u);
}

}  // namespace
}  // namespace quill::ui
