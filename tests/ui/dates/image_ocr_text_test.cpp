#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QPlainTextEdit>
#include <QPushButton>

#include "open_dialog.h"
#include "ui/windows/text/win_image_ocr_text.h"

namespace quill::ui {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Dialog = OpenDialog<MWinImageOCRText>;

/// Presses the button that is reached with this letter, and gives the keyboard back to the text.
void Do(MWinImageOCRText& window, Qt::Key letter) {
  PressButton(letter);
  window.findChild<QPlainTextEdit*>()->setFocus();
}

std::string Copied(MWinImageOCRText& window) {
  QGuiApplication::clipboard()->clear();
  Do(window, Qt::Key_O);
  return Clipboard();
}

void Undo() {
  Press(Qt::Key_Z, Qt::ControlModifier);
}

// What is copied is what was recognised: an ordinary text field would turn its line ends and no-break spaces
// into others, and the tidying would glue words together.
TEST(ImageText, KeepsWhatIsNotEdited) {
  Dialog dialog(shell::ImageTextRequest{"one\r\ntwo\u00A0too\rthree\nfour\r\n"});
  EXPECT_THAT(TabOrder(*dialog.window),
              ElementsAre("Text in Image", "Clear Extra Spaces", "Restore Paragraphs", "Copy", "Close"));
  EXPECT_THAT(UnnamedControls(*dialog.window), IsEmpty());
  Picture(*dialog.window, "image-text");
  EXPECT_EQ(Copied(*dialog.window), "one\r\ntwo\u00A0too\rthree\nfour\r\n");
  EXPECT_FALSE(dialog.closed);

  Type("At ");
  Press(Qt::Key_End, Qt::ControlModifier);
  Type("five");
  Press(Qt::Key_Return);
  Type("six");
  Press(Qt::Key_Return, Qt::ShiftModifier);
  EXPECT_EQ(Copied(*dialog.window), "At one\r\ntwo\u00A0too\rthree\nfour\r\nfive\r\nsix\r\n");
  Press(Qt::Key_A, Qt::ControlModifier);
  Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(Clipboard(), "At one\r\ntwo\u00A0too\rthree\nfour\r\nfive\r\nsix\r\n");
  Press(Qt::Key_Delete);
  Undo();
  EXPECT_EQ(Copied(*dialog.window), "At one\r\ntwo\u00A0too\rthree\nfour\r\nfive\r\nsix\r\n");
}

// A part that is copied by hand is exact, too, from the middle of a line to the middle of another.
TEST(ImageText, CopiesASelectionExactly) {
  Dialog dialog(shell::ImageTextRequest{"abc\r\nd\u00A0f\rghi"});
  Press(Qt::Key_Right);
  for (int i = 0; i < 8; ++i) Press(Qt::Key_Right, Qt::ShiftModifier);
  Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(Clipboard(), "bc\r\nd\u00A0f\rg");
}

// Pasted lines end as the lines around them, not as the clipboard's: the tidying sees them then.
TEST(ImageText, TakesPastedLines) {
  Dialog dialog(shell::ImageTextRequest{"one\r\ntwo"});
  QGuiApplication::clipboard()->setText("p\nq");
  Press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Copied(*dialog.window), "p\r\nqone\r\ntwo");
  Undo();
  EXPECT_EQ(Copied(*dialog.window), "one\r\ntwo");
}

// Joining lines wants carriage returns and leaves none. Taking it back brings them back, whatever was typed
// before and after.
TEST(ImageText, UndoesTidyingWithItsCarriageReturns) {
  Dialog dialog(shell::ImageTextRequest{"one\r\ntwo.\r\n\r\nthree"});
  Type("x");
  Do(*dialog.window, Qt::Key_R);
  EXPECT_EQ(Copied(*dialog.window), "xone two.\n\n\nthree");
  Picture(*dialog.window, "image-text-tidied");
  Type("y");
  Undo();
  Undo();
  EXPECT_EQ(Copied(*dialog.window), "xone\r\ntwo.\r\n\r\nthree");
  Press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Copied(*dialog.window), "xone two.\n\n\nthree");
  Undo();
  Press(Qt::Key_Home, Qt::ControlModifier);
  Press(Qt::Key_Return);  // a new edit where the tidying was taken back
  EXPECT_EQ(Copied(*dialog.window), "\r\nxone\r\ntwo.\r\n\r\nthree");
  Undo();
  Undo();
  EXPECT_EQ(Copied(*dialog.window), "one\r\ntwo.\r\n\r\nthree");
  Undo();
  EXPECT_EQ(Copied(*dialog.window), "one\r\ntwo.\r\n\r\nthree") << "the text itself is not undone away";
}

// The blanks between ideographs go; a button that finds nothing to do says so and leaves nothing to undo.
TEST(ImageText, ClearsExtraSpaces) {
  Dialog dialog(shell::ImageTextRequest{"\u4E2D \u6587 text\r\n"});
  Do(*dialog.window, Qt::Key_E);
  EXPECT_EQ(Copied(*dialog.window), "\u4E2D\u6587 text\r\n");
  Do(*dialog.window, Qt::Key_E);
  Picture(*dialog.window, "image-text-same");
  Press(Qt::Key_Tab);  // to a button, where the keyboard is after a click, too
  Undo();
  EXPECT_EQ(Copied(*dialog.window), "\u4E2D \u6587 text\r\n");
}

// A picture without text still opens the window, which then says why it is empty.
TEST(ImageText, SaysThatNothingWasRecognised) {
  Dialog dialog(shell::ImageTextRequest{});
  Picture(*dialog.window, "image-text-none");
  for (auto* button : dialog.window->findChildren<QPushButton*>()) {
    EXPECT_EQ(button->isEnabled(), button->isDefault()) << FromQt(button->text());
  }
  Type("a");
  EXPECT_EQ(Copied(*dialog.window), "a");
  Press(Qt::Key_Escape);
  EXPECT_TRUE(dialog.closed);
}

}  // namespace
}  // namespace quill::ui
