#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTreeWidget>

#include "open_dialog.h"
#include "ui/windows/text/win_word_count.h"

namespace quill::ui {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Dialog = OpenDialog<MWinWordCount>;

// Figures are read with separators and copied without: a spreadsheet takes them as numbers.
TEST(WordCount, ShowsAndCopiesTheFigures) {
  const LocaleScope english("en_US");
  const tools::WordCounts counts{3, 1234567, 1250000, 200, 5, 0};
  Dialog dialog(shell::CountRequest{"titleWordCount", tools::RowsOf(counts)});
  EXPECT_THAT(TabOrder(*dialog.window), ElementsAre("Word Count", "Copy", "Close"));
  EXPECT_THAT(UnnamedControls(*dialog.window), IsEmpty());
  auto* list = dialog.window->findChild<QTreeWidget*>();
  EXPECT_EQ(FromQt(list->topLevelItem(1)->text(1)), "1,234,567");
  Picture(*dialog.window, "word-count");

  PressButton(Qt::Key_O);
  const std::string all =
      "Paragraphs\t3\nCharacters (no spaces)\t1234567\nCharacters (with spaces)\t1250000\nWords\t205\n"
      "Non-Asian words\t200\nAsian characters\t5\nPictures\t0\n";
  EXPECT_EQ(Clipboard(), all);
  Picture(*dialog.window, "word-count-copied");
  QGuiApplication::clipboard()->clear();
  Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(Clipboard(), all) << "no row is selected at first";
  Press(Qt::Key_Down);
  Press(Qt::Key_Down, Qt::ShiftModifier);
  Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(Clipboard(), "Characters (no spaces)\t1234567\nCharacters (with spaces)\t1250000\n");
  EXPECT_FALSE(dialog.closed);
  Press(Qt::Key_Return);
  EXPECT_TRUE(dialog.closed);
}

// The table information has the same window; without a table it says so instead of an empty box, and leaves
// the clipboard alone.
TEST(WordCount, ServesTheTableInformation) {
  {
    Dialog dialog(shell::CountRequest{"titleTableInformation", tools::RowsOf(tools::TableSize{4, 12})});
    EXPECT_EQ(FromQt(dialog.window->windowTitle()), "Table Information");
    Picture(*dialog.window, "table-information");
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Clipboard(), "Columns\t4\nRows\t12\n");
  }
  Dialog dialog(shell::CountRequest{"titleTableInformation", {}});
  EXPECT_EQ(Focused(), "&Close");
  Picture(*dialog.window, "word-count-nothing");
  Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(Clipboard(), "Columns\t4\nRows\t12\n");
  Press(Qt::Key_Escape);
  EXPECT_TRUE(dialog.closed);
}

}  // namespace
}  // namespace quill::ui
