#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QTreeWidget>
#include <QtTest/QTest>

#include "lists_world.h"
#include "ui/windows/notebooks/notebook_icon.h"
#include "ui/windows/notebooks/win_notebook.h"
#include "ui/windows/notebooks/win_notebook_information.h"

namespace quill::ui {
namespace {

using online::NotebookListRequest;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

NotebookListRequest Shelf() {
  return {R"({"value":[
      {"displayName":"Home","isDefault":true,"links":{"oneNoteClientUrl":{"href":"onenote:https://h/Home"},
       "oneNoteWebUrl":{"href":"https://w/Home?a=1&b=%20"}},"createdDateTime":"2024-03-18T09:12:00Z"},
      {"displayName":"Work & <b>Büro</b>","links":{"oneNoteClientUrl":{"href":"onenote:https://h/Work"}}},
      {"displayName":"No links"}]})",
          R"({"value":[
      {"displayName":"Home","links":{"oneNoteClientUrl":{"href":"onenote:https://h/home"}}},
      {"displayName":"Gone","lastAccessedTime":"2023-01-02T03:04:05Z",
       "links":{"oneNoteClientUrl":{"href":"onenote:https://h/Gone"}}}]})"};
}

class Notebooks : public ListsTest {
 protected:
  MWinNotebook& List(const NotebookListRequest& lists = Shelf()) { return *Open<MWinNotebook>(lists); }

  static QAction& Action(QWidget& window, const char* name) {
    return *window.findChild<QAction*>(QLatin1String(name));
  }
  static std::string Clipboard() {
    const QMimeData* data = QApplication::clipboard()->mimeData();
    return data->formats() == QStringList(QStringLiteral("text/plain")) ? FromQt(data->text()) : "not plain";
  }
};

// Return and a double click open; a notebook that is gone says so instead of sending OneNote nowhere.
TEST_F(Notebooks, OpenInOneNote) {
  MWinNotebook& list = List();
  EXPECT_THAT(Listed(list),
              ElementsAre("Home, default", "Work & <b>Büro</b>", "No links", "Gone, not there any more"));
  Picture(list, "notebooks");
  Press(Qt::Key_Return);
  Type("buro");
  QListView& view = View(list);
  const QPoint row = view.visualRect(view.currentIndex()).center();
  QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, row);
  EXPECT_THAT(did, SizeIs(1)) << "one click marks";
  QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, row);
  Press(Qt::Key_Escape);
  Press(Qt::Key_End);
  Press(Qt::Key_Return);
  Press(Qt::Key_Up);
  EXPECT_EQ(Current(list), "No links");
  Press(Qt::Key_Return);
  EXPECT_THAT(did, ElementsAre("open onenote:https://h/Home", "open onenote:https://h/Work",
                               "tell This notebook is not there any more."));
}

// A copied link is pasted into other programs: the text alone, exactly as the service gave it.
TEST_F(Notebooks, CopyTheirLinks) {
  MWinNotebook& list = List();
  Press(Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Clipboard(), "https://w/Home?a=1&b=%20");
  EXPECT_EQ(FromQt(list.findChild<QLabel*>(QStringLiteral("status"))->text()), "Copied.");
  Press(Qt::Key_L, Qt::ControlModifier);
  EXPECT_EQ(Clipboard(), "onenote:https://h/Home");
  Press(Qt::Key_Down);
  EXPECT_FALSE(Action(list, "rowCopyWebLink").isEnabled());
  Press(Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Clipboard(), "onenote:https://h/Home") << "no link leaves the clipboard alone";
  EXPECT_TRUE(Action(list, "rowCopyClientLink").isEnabled());
}

// The row menu comes by key and by the other mouse button, and means the row under it.
TEST_F(Notebooks, HaveAMenu) {
  MWinNotebook& list = List();
  auto* menu = list.findChild<QMenu*>();
  const auto wait = [&](bool open) { return WaitUntil([&] { return menu->isVisible() == open; }); };
  Press(Qt::Key_Down);
  for (QWidget* where : {static_cast<QWidget*>(&Field(list)), static_cast<QWidget*>(&View(list))}) {
    QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(3, 3), where->mapToGlobal(QPoint(3, 3)));
    QApplication::sendEvent(where, &key);
    ASSERT_TRUE(wait(true));
    menu->close();
    ASSERT_TRUE(wait(false));
  }
  const QPoint third = View(list).visualRect(View(list).model()->index(2, 0)).center();
  QContextMenuEvent click(QContextMenuEvent::Mouse, third, View(list).viewport()->mapToGlobal(third));
  QApplication::sendEvent(View(list).viewport(), &click);
  ASSERT_TRUE(wait(true));
  EXPECT_EQ(Current(list), "No links");
  std::vector<std::string> titles;
  for (const QAction* action : menu->actions()) {
    titles.push_back(FromQt(action->text().remove(u'&')) + (action->isEnabled() ? "" : " -"));
  }
  EXPECT_THAT(titles, ElementsAre("Open -", "Copy Client Link -", "Copy Web Link -", "Information"));
  Picture(*menu, "notebooks-menu");
}

// The information is that of the row, for a recent notebook that is gone, too; the list stays open.
TEST_F(Notebooks, ShowWhatIsKnownAboutOne) {
  MWinNotebook& list = List();
  Type("gone");
  Press(Qt::Key_I, Qt::ControlModifier);
  auto* information = WaitForWindow<MWinNotebookInformation>();
  ASSERT_NE(information, nullptr);
  EXPECT_EQ(FromQt(information->windowTitle()), "Gone – Notebook Information");
  auto* facts = information->findChild<QTreeWidget*>();
  ASSERT_EQ(facts->topLevelItemCount(), 3);
  EXPECT_EQ(FromQt(facts->topLevelItem(1)->text(0)), "Last opened");
  EXPECT_TRUE(list.isVisible());
}

// A second look at the account shows in the window that is open; without notebooks it says so.
TEST_F(Notebooks, AreShownAnewInPlace) {
  MWinNotebook& list = List();
  Type("gone");
  EXPECT_EQ(&List(), &list);
  EXPECT_EQ(FromQt(Field(list).text()), "");
  EXPECT_THAT(Listed(list), SizeIs(4));
  List({"", "x"});
  EXPECT_FALSE(View(list).isVisible());
  EXPECT_FALSE(Action(list, "rowInformation").isEnabled());
  Press(Qt::Key_Return);
  Press(Qt::Key_I, Qt::ControlModifier);
  EXPECT_THAT(did, IsEmpty());
  Picture(list, "notebooks-none");
}

// No control is out of reach or without a name.
TEST_F(Notebooks, AreUsedWithoutAMouse) {
  MWinNotebook& list = List();
  EXPECT_THAT(UnnamedControls(list), IsEmpty());
  EXPECT_THAT(TabOrder(list),
              testing::UnorderedElementsAre("Filter notebooks", "Notebooks", "Open", "Information", "Close"));
  EXPECT_EQ(Focused(), "") << "the field";
  Press(Qt::Key_I, Qt::AltModifier);
  EXPECT_NE(WaitForWindow<MWinNotebookInformation>(), nullptr);
}

// The icon tells the three kinds apart, and is there: a name that has no picture would leave a gap.
TEST_F(Notebooks, HaveThreeIcons) {
  std::vector<QImage> icons;
  for (const char* name : {"notebookDefault", "notebook", "notebookDeleted"}) {
    icons.push_back(NotebookIconOf(name).pixmap(16, 16).toImage());
    ASSERT_FALSE(icons.back().isNull()) << name;
    EXPECT_EQ(icons.back().width(), 16 * icons.back().devicePixelRatio());
  }
  EXPECT_TRUE(icons[0] != icons[1] && icons[1] != icons[2] && icons[0] != icons[2]);
}

}  // namespace
}  // namespace quill::ui
