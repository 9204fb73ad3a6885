#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTreeWidget>
#include <QtTest/QTest>

#include "ui/dates/open_dialog.h"
#include "ui/kit/elided_label.h"
#include "ui/windows/cloud_files/win_cloud_file_attachment.h"

namespace quill::ui {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Dialog = OpenDialog<MWinCloudFileAttachment>;

shell::CloudFilesRequest Copies() {
  return {{{"Personal", "OneNote Uploads", "Plan & costs.docx",
            "/Users/a/OneDrive/OneNote Uploads/Plan & costs.docx"},
           {"Personal", "OneNote Uploads", "Plan & costs.docx",
            "/Users/a/OneDrive - Second library/OneNote Uploads/Plan & costs.docx"},
           {"Household", "OneNote Notebook uploads of the last year", "Plan & costs.docx",
            "/Users/a/Household/OneNote Notebook uploads of the last year/Plan & costs.docx"}}};
}

std::string Place(const Dialog& dialog) {
  return FromQt(dialog.window->findChild<ElidedLabel*>(QStringLiteral("place"))->accessibleName());
}

// The three columns tell the copies apart, and where they look the same the place below does.
TEST(CloudFiles, ShowsAccountFolderAndName) {
  Dialog dialog(Copies());
  const auto* table = dialog.window->findChild<QTreeWidget*>();
  ASSERT_EQ(table->columnCount(), 3);
  ASSERT_EQ(table->topLevelItemCount(), 3);
  EXPECT_EQ(FromQt(table->topLevelItem(2)->text(0)), "Household");
  EXPECT_EQ(FromQt(table->topLevelItem(2)->text(1)), "OneNote Notebook uploads of the last year");
  EXPECT_EQ(FromQt(table->topLevelItem(2)->text(2)), "Plan & costs.docx");
  EXPECT_EQ(Place(dialog), Copies().files[0].FullName);
  EXPECT_THAT(UnnamedControls(*dialog.window), IsEmpty());
  EXPECT_THAT(
      TabOrder(*dialog.window),
      ElementsAre("There are several copies of this file. Choose the one to open.", "Open", "Cancel"));
  Picture(*dialog.window, "cloud-files");
}

// Choosing is moving and Return, or one click; closing opens nothing.
TEST(CloudFiles, ReturnAndAClickChoose) {
  Dialog keyboard(Copies());
  Press(Qt::Key_Down);
  EXPECT_EQ(Place(keyboard), Copies().files[1].FullName);
  Press(Qt::Key_Return);
  EXPECT_EQ(keyboard.answer, 1u);

  Dialog mouse(Copies());
  auto* table = mouse.window->findChild<QTreeWidget*>();
  QTest::mouseClick(table->viewport(), Qt::LeftButton, {},
                    table->visualItemRect(table->topLevelItem(2)).center());
  EXPECT_EQ(mouse.answer, 2u);
  EXPECT_TRUE(mouse.closed);

  Dialog cancelled(Copies());
  Press(Qt::Key_Escape);
  EXPECT_TRUE(cancelled.closed);
  EXPECT_EQ(cancelled.answer, std::nullopt);
}

}  // namespace
}  // namespace quill::ui
