#include <gmock/gmock.h>

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QTreeWidget>
#include <atomic>
#include <thread>

#include "fake_find_replace_view.h"
#include "gui_world.h"
#include "ui/kit/modal_window.h"
#include "ui/windows/find_replace/win_onenote_online.h"

namespace quill::ui {
namespace {

using online::EditorAnswer;
using online::EditorWish;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kPage = "<p id=\"p:1\">old</p>";
constexpr const char* kSaved = "<p id=\"p:2\">new</p>";
constexpr const char* kJson = R"([{"target":"p:1","action":"replace","content":"<p>new</p>"}])";

/// An editor in front of its command, which answers what `answer` says.
class Editor : public testing::Test {
 protected:
  void Open(const std::string& html = kPage) {
    m_talk = std::make_shared<online::EditorTalk>();
    auto fake = std::make_unique<FakeFindReplaceView>();
    view = fake.get();
    window = new MWinOneNoteOnline(world.strings, std::move(fake),
                                   {"Week 12", html, std::make_shared<online::EditorSeat>(m_talk)});
    command.emplace(std::async(std::launch::async, [this, talk = m_talk] {
      while (const auto wish = talk->Next()) talk->Answer(answer(*wish));
      return true;
    }));
    window->show();
    ASSERT_TRUE(WaitUntil([] { return OpenWindow<MWinOneNoteOnline>() != nullptr; }));
    Settle();
    view->log.clear();
  }
  void TearDown() override {
    isReleased = true;
    delete window;
    if (!command) return;
    EXPECT_TRUE(command->get());
  }

  /// Until the view has answered everything.
  static void Settle() {
    bool isThrough = false;
    for (int i = 0; i < 4; ++i) {
      isThrough = false;
      OnGui([&isThrough] { isThrough = true; });
      WaitUntil([&isThrough] { return isThrough; });
    }
  }
  QPushButton* Button(const char* text) const {
    for (auto* button : window->findChildren<QPushButton*>()) {
      if (FromQt(button->text().remove(u'&')) == text) return button;
    }
    ADD_FAILURE() << "no button " << text;
    return nullptr;
  }
  std::string Label(const char* name) const { return FromQt(window->findChild<QLabel*>(name)->text()); }
  /// Waits for an alert or question, and presses a key there.
  std::string Told(Qt::Key key = Qt::Key_Return) {
    auto* box = WaitForWindow<ModalWindow>();
    if (box == nullptr) return "nothing";
    const std::string text = FromQt(box->accessibleDescription());
    Press(key);
    WaitUntil([] { return OpenWindow<ModalWindow>() == nullptr; });
    window->activateWindow();
    WaitForWindow<MWinOneNoteOnline>();
    return text;
  }
  /// A text is replaced, and the page holds a change.
  void Change() {
    view->state = {true, 3, 1, 1};
    view->changes = {{"paragraph", "old", "new"}};
    view->json = kJson;
    Type("old");
    Button("Replace")->click();
    Settle();
    view->log.clear();
  }

  GuiWorld world;
  QPointer<MWinOneNoteOnline> window;
  FakeFindReplaceView* view = nullptr;
  std::optional<std::future<bool>> command;
  std::vector<std::string> wishes;
  std::atomic<bool> isReleased = true;  ///< the command waits with its answer until it is
  std::function<EditorAnswer(const EditorWish&)> answer = [this](const EditorWish& wish) {
    wishes.push_back(wish.kind == EditorWish::Kind::Save ? wish.json : "undo");
    while (!isReleased) std::this_thread::yield();
    return next;
  };
  EditorAnswer next{true, "", kSaved, true};

 private:
  std::shared_ptr<online::EditorTalk> m_talk;
};

// The whole way without a mouse: type, look, replace, save.
TEST_F(Editor, IsUsedByTheKeyboardAlone) {
  Open();
  EXPECT_EQ(FromQt(window->windowTitle()), "Week 12 – Find and Replace");
  EXPECT_THAT(UnnamedControls(*window), IsEmpty());
  view->state = {true, 12, 0, 0};
  Type("ol");
  Settle();
  EXPECT_EQ(Label("count"), "12 matches");
  view->state.currentMatch = 3;
  Press(Qt::Key_Return);
  Press(Qt::Key_Return, Qt::ShiftModifier);
  Press(Qt::Key_F3);
  Press(Qt::Key_F3, Qt::ShiftModifier);
  Settle();
  EXPECT_EQ(Label("count"), "3 of 12");
  EXPECT_THAT(TabOrder(*window), ElementsAre("Find", "Replace with", "Match case", "Find Next",
                                             "Find Previous", "Replace", "Replace All", "Go to Match", "Page",
                                             "Show what is sent", "Changes", "Save", "Close"));
  Press(Qt::Key_H, Qt::ControlModifier);
  Type("new");
  Press(Qt::Key_Return);
  Press(Qt::Key_F, Qt::ControlModifier);
  EXPECT_EQ(Focused(), "ol");
  Press(Qt::Key_M, Qt::AltModifier);
  EXPECT_TRUE(WaitUntil([&] { return view->log.back() == "mark ol (case)"; }));
  EXPECT_THAT(view->log, ElementsAre("mark o", "mark ol", "next ol", "previous ol", "next ol", "previous ol",
                                     "replace ol by new", "mark ol (case)"));
}

// The end of the page is told, once for each search that comes to it; nothing is asked without a text.
TEST_F(Editor, TellsTheEndOfThePage) {
  Open();
  Press(Qt::Key_Return);
  Settle();
  EXPECT_THAT(view->log, IsEmpty());
  EXPECT_FALSE(Button("Find Next")->isEnabled());
  Type("x");
  EXPECT_TRUE(WaitUntil([&] { return Label("count") == "No matches"; }));
  Press(Qt::Key_Return);
  EXPECT_EQ(Told(), "Nothing more was found.");
  Button("Replace")->click();
  EXPECT_EQ(Told(), "Nothing more was found.");
  Button("Replace All")->click();
  Settle();
  EXPECT_EQ(OpenWindow<ModalWindow>(), nullptr);
  EXPECT_EQ(Label("status"), "Replaced: 0");
}

// Saving without any replacement says so and keeps the window open.
TEST_F(Editor, SavesNothingWithoutAChange) {
  Open();
  Press(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(Told(), "No changed!");
  EXPECT_TRUE(window->isVisible());
  EXPECT_TRUE(Button("Save")->isEnabled());
  EXPECT_THAT(wishes, IsEmpty());
}

// While the command saves nothing can be changed; then the page is there with its new ids, and the way back.
TEST_F(Editor, SavesAndTakesBack) {
  Open();
  Change();
  EXPECT_FALSE(Button("Undo Last Save")->isEnabled());
  isReleased = false;
  window->findChild<QLineEdit*>()->setFocus();
  Press(Qt::Key_S, Qt::ControlModifier);
  ASSERT_TRUE(WaitUntil([&] { return window->findChild<QProgressBar*>()->isVisible(); }));
  for (const char* button : {"Save", "Replace All", "Find Next"}) EXPECT_FALSE(Button(button)->isEnabled());
  EXPECT_EQ(Label("status"), "Saving…");
  Picture(*window, "find-saving");
  isReleased = true;
  ASSERT_TRUE(WaitUntil([&] { return Label("status") == "Saved."; }));
  Settle();
  EXPECT_THAT(view->log, ElementsAre(std::string("show ") + kSaved, "mark old"));
  EXPECT_EQ(Label("changes"), "Nothing has been changed.");
  EXPECT_EQ(Focused(), "old") << "one types on where one was";
  next = {true, "", kPage, false};
  Button("Undo Last Save")->click();
  ASSERT_TRUE(WaitUntil([&] { return Label("status") == "The last save is undone."; }));
  EXPECT_FALSE(Button("Undo Last Save")->isEnabled());
  EXPECT_THAT(wishes, ElementsAre(kJson, "undo"));
  window->close();
  EXPECT_TRUE(WaitUntil([&] { return window.isNull(); })) << "nothing is unsaved";
}

// A save that failed leaves the changes where they are; a cancelled one needs no words.
TEST_F(Editor, TellsWhyASaveFailed) {
  Open();
  Change();
  for (const std::string problem : {"The page has changed.", ""}) {
    next = {false, problem, "", false};
    Button("Save")->click();
    EXPECT_EQ(problem.empty() ? "" : Told(), problem);
    EXPECT_TRUE(WaitUntil([&] { return Button("Save")->isEnabled(); }));
    Settle();
    EXPECT_EQ(OpenWindow<ModalWindow>(), nullptr);
    EXPECT_EQ(Label("changes"), "Changed texts, not saved yet: 1");
  }
}

// Saved, and then the page could not be read: without its new ids nothing more can be saved, but taken back.
TEST_F(Editor, GoesOnAsFarAsItCanWithoutThePage) {
  Open();
  Change();
  next = {true, "", "", true};
  Button("Save")->click();
  EXPECT_THAT(Told(), testing::HasSubstr("could not be read again"));
  EXPECT_FALSE(Button("Save")->isEnabled());
  EXPECT_FALSE(Button("Find Next")->isEnabled());
  EXPECT_TRUE(Button("Undo Last Save")->isEnabled());
  window->close();
  EXPECT_TRUE(WaitUntil([&] { return window.isNull(); }));
}

// Work is not lost by an Escape too many; without changes there is nothing to ask.
TEST_F(Editor, AsksBeforeItDropsChanges) {
  Open();
  Change();
  Press(Qt::Key_Escape);
  EXPECT_EQ(Told(Qt::Key_Escape), "Close without saving? The changes are lost.");
  EXPECT_TRUE(window->isVisible());
  window->close();
  auto* question = WaitForWindow<ModalWindow>();
  ASSERT_NE(question, nullptr);
  Press(Qt::Key_Tab);
  Press(Qt::Key_Space);
  EXPECT_TRUE(WaitUntil([&] { return window.isNull(); }));
  EXPECT_TRUE(command->get()) << "the command ends with its window";
  command.reset();
  EXPECT_THAT(wishes, IsEmpty());
}

// Taking the last save back shows the page anew: what was replaced since then would go with it.
TEST_F(Editor, AsksBeforeItUndoesOverChanges) {
  Open();
  Change();
  Button("Save")->click();
  ASSERT_TRUE(WaitUntil([&] { return Label("status") == "Saved."; }));
  Settle();
  view->state = {true, 1, 1, 1};
  Button("Replace")->click();
  Settle();
  Button("Undo Last Save")->click();
  EXPECT_EQ(Told(Qt::Key_Escape), "Undo the last save? The changes that are not saved yet are lost.");
  EXPECT_THAT(wishes, ElementsAre(kJson));
}

// What will be saved can be looked at first: the texts, and exactly what is sent.
TEST_F(Editor, ShowsWhatItWillSave) {
  Open();
  view->state = {true, 3, 1, 2};
  const QString begin = QString("x").repeated(500);
  view->changes = {{"cell", "old", "new"}, {"item", begin + "old", begin + "new"}};
  view->json = kJson;
  Type("old");
  Button("Replace")->click();
  Settle();
  auto* list = window->findChild<QTreeWidget*>();
  ASSERT_EQ(list->topLevelItemCount(), 2);
  EXPECT_EQ(FromQt(list->topLevelItem(0)->text(0) + list->topLevelItem(0)->text(2)), "Table cellnew");
  EXPECT_EQ(FromQt(list->topLevelItem(1)->text(2)), "…xxxxxxxxxxxxnew") << "the difference is in view";
  Picture(*window, "find-changes");
  list->setFocus();
  Press(Qt::Key_Down);
  EXPECT_EQ(view->log.back(), "show change 1");
  Press(Qt::Key_Return);
  Settle();
  EXPECT_THAT(wishes, IsEmpty()) << "Return saves nothing by accident";
  window->findChild<QCheckBox*>("asJson")->setFocus();
  Press(Qt::Key_Space);
  Settle();
  EXPECT_EQ(FromQt(window->findChild<QPlainTextEdit*>()->toPlainText()), kJson);
  Picture(*window, "find-json");
}

// The page's process may end: the page comes back, and the user hears what is gone.
TEST_F(Editor, ShowsALostPageAgain) {
  Open();
  Change();
  view->lost();
  EXPECT_THAT(Told(), testing::HasSubstr("not saved are lost"));
  EXPECT_THAT(view->log, ElementsAre(std::string("show ") + kPage, "mark old"));
  EXPECT_EQ(Label("changes"), "Nothing has been changed.");
  window->close();
  EXPECT_TRUE(WaitUntil([&] { return window.isNull(); }));
}

// What is no well-formed page would be sent in pieces that are none.
TEST_F(Editor, RefusesWhatItCannotSendAgain) {
  Open("<p id=\"p:1\">old");
  EXPECT_THAT(Told(), testing::HasSubstr("cannot be edited here"));
  EXPECT_FALSE(Button("Save")->isEnabled());
  EXPECT_THAT(view->log, IsEmpty());
}

}  // namespace
}  // namespace quill::ui
