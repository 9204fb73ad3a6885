#include <QAccessible>
#include <QListWidget>
#include <QPainter>
#include <QTextTable>
#include <QtTest/QTest>
#include <set>

#include "table_windows.h"
#include "ui/kit/page_preview.h"
#include "ui/kit/qt_text.h"
#include "ui/windows/tables/table_style_icon.h"
#include "ui/windows/tables/table_style_name.h"
#include "ui/windows/tables/win_table_style.h"

namespace quill::ui {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

shell::TableCopy Timetable() {
  const std::string cell = "<td style='border:1px solid;padding:2pt'><p>";
  std::string table = "<table border='1' style='border-collapse:collapse;border-color:#A3A3A3'>";
  for (const char* day : {"Day", "Monday", "Tuesday", "Wednesday"}) {
    table += "<tr>" + cell + day + "</p></td>" + cell + "Room 12</p></td>" + cell + "9:30</p></td></tr>";
  }
  return TableOf(table + "</table>");
}

struct TableStyleWindow : DialogTest<MWinTableStyle, shell::TableStyleRequest> {
  static QListWidget* Styles(MWinTableStyle* window) { return window->findChild<QListWidget*>(); }

  /// The background colours of the cells in the preview, row by row.
  static std::vector<std::string> Backgrounds(MWinTableStyle* window) {
    std::vector<std::string> rows;
    auto* preview = window->findChild<PagePreview*>();
    const QList<QTextFrame*> frames = preview->document()->rootFrame()->childFrames();
    auto* table = frames.isEmpty() ? nullptr : qobject_cast<QTextTable*>(frames.front());
    for (int row = 0; table != nullptr && row < table->rows(); ++row) {
      std::string colors;
      for (int column = 0; column < table->columns(); ++column) {
        const QTextCharFormat format = table->cellAt(row, column).format();
        colors += FromQt(format.hasProperty(QTextFormat::BackgroundBrush) ? format.background().color().name()
                                                                          : QStringLiteral("none")) +
                  " ";
      }
      rows.push_back(colors);
    }
    return rows;
  }
};

// The style used last is offered, and Return alone applies it again.
TEST_F(TableStyleWindow, OffersTheStyleUsedLast) {
  auto asked = Ask({Timetable(), 21});
  auto* window = WaitForWindow<MWinTableStyle>();
  ASSERT_NE(window, nullptr);
  EXPECT_THAT(UnnamedControls(*window), IsEmpty());
  EXPECT_THAT(TabOrder(*window), ElementsAre("Styles", "Preview", "OK", "Cancel"));
  EXPECT_EQ(Styles(window)->currentRow(), 21);
  EXPECT_THAT(Backgrounds(window), ElementsAre("#000000 #000000 #000000 ", "#000000 #d9d9d9 #d9d9d9 ",
                                               "#000000 #ffffff #ffffff ", "#000000 #d9d9d9 #d9d9d9 "));
  Picture(*window, "table-style");
  Press(Qt::Key_Return);
  EXPECT_EQ(asked.Answer().value(), 21);
}

// Styles are tried out with the arrow keys; the user's own table shows each at once, and keeps its content.
TEST_F(TableStyleWindow, ShowsTheTableInTheStyleUnderTheArrowKeys) {
  const shell::TableCopy table = Timetable();
  auto asked = Ask({table, 1});
  auto* window = WaitForWindow<MWinTableStyle>();
  ASSERT_NE(window, nullptr);
  const bool mirrored = window->layoutDirection() == Qt::RightToLeft;
  Press(mirrored ? Qt::Key_Left : Qt::Key_Right);
  EXPECT_EQ(Backgrounds(window).at(1), "#fbe4d5 #fbe4d5 #fbe4d5 ");
  Press(Qt::Key_Down);
  EXPECT_EQ(Styles(window)->currentRow(), 9) << "the styles of one colour stand in a column";
  EXPECT_EQ(Backgrounds(window).at(0), "#e6b8b7 #e6b8b7 #e6b8b7 ");
  EXPECT_THAT(FromQt(window->findChild<PagePreview*>()->toPlainText()), testing::HasSubstr("Wednesday"));
  Press(Qt::Key_Return);
  EXPECT_EQ(asked.Answer().value(), 9);
  const std::string style = table->document_element().child("tr").child("td").attribute("style").value();
  EXPECT_EQ(style, "border:1px solid;padding:2pt") << "the command's copy is only read";
}

// A settings file may hold any number: then no style is chosen, and OK has nothing to apply.
TEST_F(TableStyleWindow, WithoutAChosenStyleOkDoesNothing) {
  for (const std::int64_t remembered : {std::int64_t{-1}, std::int64_t{35}, std::int64_t{5'000'000'000}}) {
    auto asked = Ask({Timetable(), remembered});
    auto* window = WaitForWindow<MWinTableStyle>();
    ASSERT_NE(window, nullptr);
    EXPECT_THAT(Styles(window)->selectedItems(), IsEmpty());
    EXPECT_EQ(Backgrounds(window).at(0), "none none none ");
    Press(Qt::Key_Return);
    ProcessEventsFor(20ms);
    EXPECT_FALSE(asked.Answered());
    EXPECT_NE(window->findChild<ProblemLine*>(), nullptr);
    Picture(*window, "table-style-none");
    Press(Qt::Key_Down);
    EXPECT_EQ(window->findChild<ProblemLine*>(), nullptr);
    Press(Qt::Key_Escape);
    EXPECT_EQ(asked.Answer().value(), std::nullopt);
  }
}

// A click looks, a double click takes. On a screen with little room the remembered style is scrolled to.
TEST_F(TableStyleWindow, TakesADoubleClick) {
  auto asked = Ask({Timetable(), 34});
  auto* window = WaitForWindow<MWinTableStyle>();
  ASSERT_NE(window, nullptr);
  QListWidget* styles = Styles(window);
  const auto click = [&](int row) { return styles->visualItemRect(styles->item(row)).center(); };
  for (int row = 0; row < styles->count(); ++row) {
    EXPECT_TRUE(styles->viewport()->rect().contains(styles->visualItemRect(styles->item(row)))) << row;
  }
  QTest::mouseClick(styles->viewport(), Qt::LeftButton, {}, click(4));
  EXPECT_EQ(styles->currentRow(), 4);
  EXPECT_FALSE(asked.Answered());
  QTest::mouseClick(styles->viewport(), Qt::LeftButton, {}, click(15));
  QTest::mouseDClick(styles->viewport(), Qt::LeftButton, {}, click(15));
  EXPECT_EQ(asked.Answer().value(), 15);

  auto* small = new MWinTableStyle(world.strings, {Timetable(), 34}, [](auto) {});
  small->resize(small->minimumSizeHint());
  small->show();
  styles = Styles(small);
  EXPECT_FALSE(styles->viewport()->rect().contains(styles->visualItemRect(styles->item(0))));
  EXPECT_TRUE(styles->viewport()->rect().contains(styles->visualItemRect(styles->item(34)).center()));
}

// Someone who does not see the small tables hears what they look like, and no two alike.
TEST_F(TableStyleWindow, TellsWhatAStyleLooksLike) {
  const auto name = [&](int number) {
    return TableStyleName(world.strings, number, tools::kTableStyles[number - 1]);
  };
  EXPECT_EQ(name(1), "Style 1: rows white and grey");
  EXPECT_EQ(name(9), "Style 9: rows in two shades of blue");
  EXPECT_EQ(name(17), "Style 17: header row red, rows white and red");
  EXPECT_EQ(name(22), "Style 22: header row black, first column black, rows white and grey");
  EXPECT_EQ(name(33), "Style 33: first column purple, rows white and purple");
  EXPECT_EQ(name(34), "Style 34: first column turquoise, rows white and turquoise");
  EXPECT_EQ(name(35), "Style 35: first column orange, rows white and orange");
  auto asked = Ask({Timetable(), 21});
  auto* window = WaitForWindow<MWinTableStyle>();
  ASSERT_NE(window, nullptr);
  auto* spoken = QAccessible::queryAccessibleInterface(Styles(window));
  ASSERT_NE(spoken, nullptr);
  EXPECT_EQ(FromQt(spoken->child(21)->text(QAccessible::Name)), name(22));
}

// The small tables have the colours of what they promise, at every scale.
TEST(TableStyleIcon, HasTheColoursOfTheStyle) {
  for (const double scale : {1.0, 1.5, 2.0}) {
    QImage image(QSize(56, 40) * scale, QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    QPainter painter(&image);
    TableStyleIcon(tools::kTableStyles[22]).paint(&painter, QRect(0, 0, 56, 40));
    painter.end();
    const auto color = [&](int x, int y) { return FromQt(QColor(image.pixel(QPoint(x, y) * scale)).name()); };
    EXPECT_EQ(color(40, 5), "#4f81bd") << "header";
    EXPECT_EQ(color(8, 20), "#4f81bd") << "first column";
    EXPECT_EQ(color(40, 12), "#dce6f1") << "even row";
    EXPECT_EQ(color(40, 20), "#ffffff") << "odd row";
    std::set<QRgb> colors;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) colors.insert(image.pixel(x, y));
    }
    EXPECT_EQ(colors.size(), 4u) << "sharp edges mix no colours";
  }
}

}  // namespace
}  // namespace quill::ui
