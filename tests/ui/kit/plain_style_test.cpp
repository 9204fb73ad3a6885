#include "ui/kit/plain_style.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QStyleFactory>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "gui_world.h"
#include "ui/appearance.h"

namespace quill::ui {
namespace {

/// How much lighter one colour is than another, 1 to 21, as the web's rules for readable pages define it.
double Contrast(const QColor& a, const QColor& b) {
  const auto luminance = [](const QColor& color) {
    const auto linear = [](double c) {
      return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
  };
  const auto [low, high] = std::minmax({luminance(a), luminance(b)});
  return (high + 0.05) / (low + 0.05);
}

/// The application's style and palette during one test.
struct PlainStyleTest : testing::Test {
  PlainStyleTest() { PlainStyle::UseWhereNothingIsNative(); }
  ~PlainStyleTest() override {
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(m_palette);
  }
  QPalette m_palette = QApplication::palette();
};

/// The strongest contrast between the ground and what a control draws along its leading edge.
double EdgeContrast(QWidget& window, const QWidget& control, int width) {
  const QImage image = window.grab().toImage();
  const QColor ground = window.palette().color(QPalette::Window);
  double best = 1;
  const int y = control.geometry().center().y();
  for (int x = control.x() - 1; x < control.x() + width; ++x) {
    best = std::max(
        best, Contrast(image.pixelColor(int(x * image.devicePixelRatio()), int(y * image.devicePixelRatio())),
                       ground));
  }
  return best;
}

// On a dark ground an empty check box or field without an outline is a shadow that nobody finds.
TEST_F(PlainStyleTest, ShowsEmptyFieldsOnADarkGround) {
  QApplication::setPalette(DarkPalette());
  QWidget window;
  auto* box = new QCheckBox(QStringLiteral("Keep ratio"));
  auto* field = new QLineEdit;
  auto* column = new QVBoxLayout(&window);
  column->addWidget(box);
  column->addWidget(field);
  window.show();
  ASSERT_TRUE(WaitUntil([&] { return window.isVisible(); }));
  box->clearFocus();
  field->clearFocus();
  EXPECT_GE(EdgeContrast(window, *box, 4), 3);
  EXPECT_GE(EdgeContrast(window, *field, 4), 3);
}

// Texts that touch the edge of their button are hard to tell from the next one.
TEST_F(PlainStyleTest, GivesTheTextsOfButtonsRoom) {
  const QPushButton button(QStringLiteral("Add a Key for Another Action…"));
  const int text = button.fontMetrics().horizontalAdvance(button.text());
  EXPECT_GE(button.sizeHint().width(), text + button.fontMetrics().averageCharWidth() * 3);
}

// Who has chosen a look for the desktop gets it here, too.
TEST_F(PlainStyleTest, LeavesAnotherStyleAlone) {
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Windows")));
  PlainStyle::UseWhereNothingIsNative();
  EXPECT_EQ(dynamic_cast<PlainStyle*>(QApplication::style()), nullptr);
}

}  // namespace
}  // namespace quill::ui
