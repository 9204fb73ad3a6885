#include "ui/kit/modal_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include "gui_world.h"
#include "ui/kit/qt_text.h"
#include "ui/kit/tool_window.h"

namespace quill::ui {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A request as a tool has it: the window refuses "bad", and an empty name.
struct NameRequest {
  using Answer = std::string;
  std::string proposal;
};

class NameWindow final : public AnswerWindow<std::string> {
 public:
  NameWindow(const shell::StringTable& strings, const NameRequest& request, Done done)
      : AnswerWindow(strings, "titleAbout", std::move(done)) {
    auto* group = new QGroupBox("Names");
    auto* form = new QFormLayout(group);
    form->addRow("&Name:", m_name = new QLineEdit(ToQt(request.proposal)));
    form->addRow("&Count:", m_count = new QSpinBox);
    content().addWidget(group);
    content().addWidget(m_notes = new QPlainTextEdit);
    m_notes->setAccessibleName("Notes");
    m_notes->setTabChangesFocus(true);
    SetOkText("strCopyAll");
    AddButton("strPracticeReset");
  }

  QLineEdit* m_name;
  QSpinBox* m_count;
  QPlainTextEdit* m_notes;

 private:
  Result<std::string, Problem> Read() override {
    if (m_name->text() == "bad") return Refuse(m_name, "errPanelWrongType", {"bad"});
    if (m_count->value() > 9) return Refuse(m_count, "errPanelIsFolder");
    if (m_notes->toPlainText() == "bad") return Refuse(m_notes, "errPanelNotThere");
    return FromQt(m_name->text());
  }
};

struct ModalWindowTest : testing::Test {
  ModalWindowTest() {
    world.windows.AddDialog<NameRequest>([this](const NameRequest& request, auto done) {
      return new NameWindow(world.strings, request, [this, done](std::optional<std::string> answer) {
        ++answers;
        done(std::move(answer));
      });
    });
  }
  auto Ask(std::string proposal = "Anna") {
    return world.OnCommandThread([this, proposal] { return RunDialog(world.ui, NameRequest{proposal}); });
  }

  GuiWorld world;
  int answers = 0;
};

// A command waits for its dialog: whichever way the user or the program ends it, it hears exactly one answer.
TEST_F(ModalWindowTest, AnswersOnceHoweverItIsClosed) {
  struct Way {
    const char* name;
    std::function<void(NameWindow&)> close;
    std::optional<std::string> answer;
  };
  const std::vector<Way> ways{
      {"Return", [](auto&) { Press(Qt::Key_Return); }, "Anna"},
      {"Control+Return",
       [](auto& w) {
         w.m_notes->setFocus();
         Press(Qt::Key_Return, Qt::ControlModifier);
       },
       "Anna"},
      {"Escape", [](auto&) { Press(Qt::Key_Escape); }, std::nullopt},
      {"close button", [](auto& w) { w.close(); }, std::nullopt},
      {"closed and pressed",
       [](auto& w) {
         w.close();
         w.accept();
         w.reject();
       },
       std::nullopt},
      {"destroyed", [](auto& w) { delete &w; }, std::nullopt},
  };
  for (const Way& way : ways) {
    SCOPED_TRACE(way.name);
    answers = 0;
    auto asked = Ask();
    auto* window = WaitForWindow<NameWindow>();
    ASSERT_NE(window, nullptr);
    way.close(*window);
    EXPECT_EQ(asked.Answer().value_or("no answer"), way.answer);
    EXPECT_EQ(answers, 1);
    EXPECT_TRUE(WaitUntil([] { return OpenWindow<NameWindow>() == nullptr; }));
  }
}

// The program may end while a dialog is open, and a command may ask for one after that: nobody is left
// waiting.
TEST_F(ModalWindowTest, TheEndOfTheProgramCancelsIt) {
  auto asked = Ask();
  ASSERT_NE(WaitForWindow<NameWindow>(), nullptr);
  world.ui.Close();
  EXPECT_EQ(asked.Answer(), std::optional<std::optional<std::string>>(std::in_place, std::nullopt));
  EXPECT_EQ(answers, 1);
  auto late = Ask();
  EXPECT_TRUE(late.Answer().has_value());
  ProcessEventsFor(30ms);
  EXPECT_EQ(OpenWindow(), nullptr);
}

// Somebody without a mouse goes through the fields as they are read, then through the buttons.
TEST_F(ModalWindowTest, TabGoesThroughTheContentAndThenTheButtons) {
  auto asked = Ask();
  auto* window = WaitForWindow<NameWindow>();
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(Focused(), "Anna");
  EXPECT_THAT(TabOrder(*window),
              ElementsAre("Name:", "Count:", "Notes", "Copy All", "Reset Practice Pages…", "Cancel"));
  EXPECT_THAT(UnnamedControls(*window), IsEmpty());
  Picture(*window, "modal");
}

// What cannot be taken is told right at its field, to eyes and to screen readers, and the way on is open.
TEST_F(ModalWindowTest, ARefusedAnswerIsToldUnderItsField) {
  auto asked = Ask("bad");
  auto* window = WaitForWindow<NameWindow>();
  ASSERT_NE(window, nullptr);
  const auto problem = [&] { return window->findChild<ProblemLine*>(); };

  Press(Qt::Key_Return);
  Press(Qt::Key_Return);
  ASSERT_NE(problem(), nullptr);
  EXPECT_EQ(window->findChildren<ProblemLine*>().size(), 1);
  EXPECT_EQ(problem()->mapTo(window, QPoint()).y() > window->m_name->mapTo(window, QPoint()).y(), true);
  EXPECT_LT(problem()->mapTo(window, QPoint()).y(), window->m_count->mapTo(window, QPoint()).y());
  EXPECT_LT(problem()->height(), 3 * window->m_name->height()) << "a line, not a hole in the form";
  EXPECT_EQ(QApplication::focusWidget(), window->m_name);
  EXPECT_EQ(window->m_name->accessibleDescription(), problem()->accessibleName());
  EXPECT_EQ(FromQt(problem()->accessibleName()), "“bad” is not of the right type.");
  Picture(*window, "modal-problem");

  window->m_name->selectAll();
  Type("Berta");
  EXPECT_EQ(problem(), nullptr);
  EXPECT_EQ(window->m_name->accessibleDescription(), "");

  window->m_count->setValue(10);
  window->m_notes->setPlainText("bad");
  Press(Qt::Key_Return);
  EXPECT_TRUE(window->m_count->hasFocus());
  window->m_count->setValue(3);
  Press(Qt::Key_Return);
  EXPECT_EQ(QApplication::focusWidget(), window->m_notes);
  window->m_notes->clear();
  Press(Qt::Key_Return, Qt::ControlModifier);
  EXPECT_EQ(asked.Answer(), "Berta");
  EXPECT_EQ(answers, 1);
}

struct Notebook final : ToolWindow {
  explicit Notebook(const shell::StringTable& strings) : ToolWindow(strings, "strPractice") {
    (new QVBoxLayout(this))->addWidget(new QLineEdit);
  }
};

// A window that acts by itself goes with Escape or the platform's close key, and is made once.
TEST(ToolWindow, IsOneWindowThatTheKeyboardCloses) {
  GuiWorld world;
  const auto open = [&] { return ShowOne<Notebook>([&] { return new Notebook(world.strings); }); };
  for (const QKeyCombination key : {QKeyCombination(Qt::Key_Escape), QKeySequence(QKeySequence::Close)[0]}) {
    const QPointer<Notebook> first = open();
    ASSERT_EQ(WaitForWindow<Notebook>(), first);
    first->showMinimized();
    EXPECT_EQ(open(), first);
    EXPECT_FALSE(first->isMinimized());
    Press(key.key(), key.keyboardModifiers());
    EXPECT_NE(open(), first);
    EXPECT_TRUE(WaitUntil([&] { return first.isNull(); }));
    OpenWindow<Notebook>()->close();
  }
}

}  // namespace
}  // namespace quill::ui
