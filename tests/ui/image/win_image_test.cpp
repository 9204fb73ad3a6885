#include "ui/windows/image/win_image.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QClipboard>
#include <QFileDialog>
#include <QLabel>
#include <QPainter>
#include <QPointer>
#include <QSpinBox>
#include <QThreadPool>
#include <set>

#include "base/atomic_file.h"
#include "gui_world.h"
#include "image/pictures.h"
#include "shell/temporary_folder.h"
#include "ui/kit/modal_window.h"
#include "ui/kit/qt_text.h"
#include "ui/windows/image/picture_view.h"

namespace quill::ui {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

class ImageWindow : public testing::Test {
 protected:
  void Open(const std::filesystem::path& file) {
    window = new MWinImage(
        {world.strings, panels, folder.path(), [this](const auto& png) { pasted.push_back(png); }});
    window->Open(file);
    window->show();
    window->activateWindow();
    ASSERT_NE(WaitForWindow<MWinImage>(), nullptr);
  }

  void OpenPicture(const QImage& image = Patterned(320, 200)) {
    const QByteArray png = Encoded(image, "png");
    Open(folder.Write("holiday.png", {png.constData(), std::size_t(png.size())}));
    ASSERT_TRUE(WaitUntil([this] { return !window->view().image().isNull(); }));
  }

  void Select(const QRect& rect) {
    window->view().Change([rect](CropFrame& frame) { frame.Set(rect); });
  }

  /// Everything that the window says in labels and alerts.
  std::string Words() {
    std::string words;
    for (const QWidget* top : QApplication::topLevelWidgets()) {
      if (!top->isVisible()) continue;
      for (const auto* label : top->findChildren<QLabel*>()) {
        if (label->isVisible()) words += FromQt(label->text()) + "\n";
      }
    }
    return words;
  }

  QSpinBox& Number(const char* name) { return *window->findChild<QSpinBox*>(QLatin1String(name)); }

  test::TemporaryFolder folder;
  GuiWorld world;
  PanelMemory panels;
  std::vector<std::filesystem::path> pasted;
  QPointer<MWinImage> window;
};

// What is saved or pasted is what is in the frame: not a pixel more, not a shade different.
TEST_F(ImageWindow, HandsOnExactlyTheChosenPixels) {
  const QImage image = Patterned(320, 200);
  OpenPicture(image);
  const QRect rect(33, 41, 101, 57);
  Select(rect);

  window->SaveTo(folder.path() / "crop.png");
  ASSERT_TRUE(WaitUntil([&] { return Words().find("Saved as crop.png") != std::string::npos; }));
  EXPECT_EQ(LoadPicture(folder.path() / "crop.png")->image.convertToFormat(QImage::Format_RGB32),
            image.copy(rect));

  window->PasteIntoOneNote();
  ASSERT_TRUE(WaitUntil([this] { return pasted.size() == 1; }));
  EXPECT_TRUE(ReadFile(pasted[0]).ValueOr("").starts_with("\x89PNG"));
  EXPECT_EQ(LoadPicture(pasted[0])->image.convertToFormat(QImage::Format_RGB32), image.copy(rect));
  EXPECT_EQ(test::Mode(pasted[0]), 0600);
  EXPECT_EQ(pasted[0].parent_path(), folder.path());

  window->Copy();
  EXPECT_EQ(QGuiApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32), image.copy(rect));
  Press(Qt::Key_Escape);
  window->Copy();
  EXPECT_EQ(QGuiApplication::clipboard()->image().size(), image.size()) << "without a selection, all of it";
}

// JPEG has no transparency: what was clear must not become black.
TEST_F(ImageWindow, SavesJpegOnWhite) {
  QImage clear(64, 64, QImage::Format_ARGB32);
  clear.fill(Qt::transparent);
  OpenPicture(clear);
  window->SaveTo(folder.path() / "clear.JPG");
  ASSERT_TRUE(WaitUntil([&] { return Words().find("Saved as") != std::string::npos; }));
  const PictureResult saved = LoadPicture(folder.path() / "clear.JPG");
  ASSERT_TRUE(saved.ok());
  EXPECT_GT(qGray(saved->image.pixel(32, 32)), 250);
}

// A save that fails says so, and a file that was there before is still there.
TEST_F(ImageWindow, TellsWhenItCannotSave) {
  OpenPicture();
  folder.Write("old.bmp", "old");
  window->SaveTo(folder.path() / "old.bmp");
  ASSERT_NE(WaitForWindow<ModalWindow>(), nullptr);
  EXPECT_THAT(Words(), HasSubstr(".png or .jpg"));
  EXPECT_EQ(ReadFile(folder.path() / "old.bmp").ValueOr(""), "old");
  Press(Qt::Key_Escape);
  ASSERT_TRUE(WaitUntil([] { return OpenWindow<ModalWindow>() == nullptr; }));
  window->SaveTo(folder.path() / "no such folder" / "a.png");
  ASSERT_NE(WaitForWindow<ModalWindow>(), nullptr);
  EXPECT_THAT(Words(), HasSubstr("“a.png” could not be saved"));
}

// A picture that cannot be shown says why, and offers nothing that would need one.
TEST_F(ImageWindow, TellsWhyThereIsNoPicture) {
  Open(folder.Write("letter.png", "Dear all"));
  ASSERT_TRUE(
      WaitUntil([this] { return Words().find("“letter.png” is not a picture") != std::string::npos; }));
  Picture(*window, "image-error");
  EXPECT_THAT(UnnamedControls(*window), IsEmpty());
  for (const auto* button : window->findChildren<QAbstractButton*>()) EXPECT_FALSE(button->isEnabled());
  Press(Qt::Key_C, Qt::ControlModifier);
  Press(Qt::Key_S, Qt::ControlModifier);
  Press(Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(OpenWindow<QFileDialog>(), nullptr);
  Press(Qt::Key_Escape);
  EXPECT_TRUE(WaitUntil([this] { return window.isNull(); }));
}

// Closing the window while its picture is being decoded must not touch what is gone.
TEST_F(ImageWindow, MayBeClosedWhileItLoads) {
  const QByteArray png = Encoded(Patterned(3000, 2000), "png");
  Open(folder.Write("large.png", {png.constData(), std::size_t(png.size())}));
  window->PasteIntoOneNote();
  window->close();
  EXPECT_TRUE(WaitUntil([this] { return window.isNull(); }));
  EXPECT_TRUE(QThreadPool::globalInstance()->waitForDone(10000));
  ProcessEventsFor(20ms);
}

// Everything is done with the keyboard alone; Escape drops the selection first and then closes.
TEST_F(ImageWindow, IsUsedByKeyboardAlone) {
  OpenPicture();
  EXPECT_THAT(UnnamedControls(*window), IsEmpty());
  EXPECT_TRUE(window->view().hasFocus());
  Press(Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(window->view().frame().rect(), QRect(0, 0, 320, 200));
  Press(Qt::Key_Left, Qt::AltModifier | Qt::ShiftModifier);
  EXPECT_EQ(Number("width").value(), 310);

  Number("width").setFocus();
  Number("width").selectAll();
  Type("64");
  Press(Qt::Key_Return);
  EXPECT_EQ(window->view().frame().rect(), QRect(0, 0, 64, 200));
  EXPECT_FALSE(window.isNull()) << "Return in a field is not a button";
  Number("x").setValue(20);
  window->findChild<QCheckBox*>()->click();
  Number("height").setValue(100);
  EXPECT_EQ(window->view().frame().rect(), QRect(20, 0, 32, 100));
  EXPECT_THAT(Words(), HasSubstr("selected 32 × 100 at 20, 0"));

  const double zoom = window->view().zoom();
  Press(Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_GT(window->view().zoom(), zoom);
  Press(Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_EQ(window->view().zoom(), zoom);
  Press(Qt::Key_0, Qt::ControlModifier);
  EXPECT_NE(window->view().zoom(), zoom);

  Press(Qt::Key_Escape);
  EXPECT_TRUE(window->view().frame().empty());
  ProcessEventsFor(20ms);
  ASSERT_FALSE(window.isNull());
  Press(Qt::Key_Escape);
  EXPECT_TRUE(WaitUntil([this] { return window.isNull(); }));
}

// How it looks, with a transparent part and a selection.
TEST_F(ImageWindow, ShowsTransparencyAndTheFrame) {
  QImage image(1400, 900, QImage::Format_ARGB32);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  QLinearGradient sky(0, 0, 0, 900);
  sky.setColorAt(0, QColor(70, 140, 220));
  sky.setColorAt(1, QColor(250, 220, 160));
  painter.fillRect(200, 0, 1200, 900, sky);
  painter.setBrush(QColor(220, 90, 60));
  painter.drawEllipse(600, 300, 300, 300);
  painter.end();
  OpenPicture(image);
  Select({100, 250, 820, 400});
  Picture(*window, "image");
  const QImage shown = window->view().viewport()->grab().toImage();
  const QPointF at = window->view().ToViewport({110, 260}) * window->devicePixelRatioF();
  std::set<QRgb> seen;
  for (int i = 0; i < 40; ++i) seen.insert(shown.pixel(at.toPoint() + QPoint(i, 12)));
  EXPECT_GE(seen.size(), 2u) << "squares stand behind what is transparent";
}

}  // namespace
}  // namespace quill::ui
