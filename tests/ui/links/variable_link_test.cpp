#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTemporaryDir>
#include <filesystem>
#include <fstream>

#include "gui_world.h"
#include "ui/kit/elided_label.h"
#include "ui/kit/qt_text.h"
#include "ui/windows/variable_link/link_preview.h"
#include "ui/windows/variable_link/win_var_link.h"

namespace quill::ui {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// The window for a user whose home folder holds a document and a script.
class VariableLinkWindow : public testing::Test {
 protected:
  void SetUp() override {
    m_home = FromQt(m_folder.path()) + "/home";
    std::filesystem::create_directories(m_home + "/Documents");
    for (const char* name : {"/Documents/plan.txt", "/run.sh", "/it's.txt"})
      std::ofstream(m_home + name) << "x";
  }

  MWinVarLink* Open(files::LinkFields fields, bool hasOneDrive = true) {
    const shell::VarLinkRequest request{std::move(fields), {"", {}, m_home, hasOneDrive}};
    m_window = new MWinVarLink(m_world.strings, m_panels, request, [this](const auto& given) {
      m_answer = given;
      m_closed = true;
    });
    m_window->show();
    WaitForWindow<MWinVarLink>();
    return m_window;
  }

  bool Says(const char* key) {
    const QString words = ToQt(m_world.strings.Text(key));
    return WaitUntil([&] { return m_window->findChild<LinkPreview*>()->words() == words; });
  }
  std::string PathHere() {
    return FromQt(m_window->findChild<ElidedLabel*>(QStringLiteral("path"))->accessibleName());
  }

  QTemporaryDir m_folder;
  std::string m_home;
  std::optional<files::LinkFields> m_answer;
  bool m_closed = false;
  MWinVarLink* m_window = nullptr;
  PanelMemory m_panels;
  GuiWorld m_world;  // the last: closes the window, which answers
};

// Text, path, OK: by the keyboard alone, with what the path means told while one types.
TEST_F(VariableLinkWindow, TellsWhatThePathMeansHere) {
  MWinVarLink* window = Open({"", ""});
  EXPECT_TRUE(Says("strVarLinkNothing"));
  EXPECT_THAT(TabOrder(*window),
              ElementsAre("Text", "Path", "Choose File…", "Choose Folder…", "Insert", "Cancel"));
  EXPECT_THAT(UnnamedControls(*window), IsEmpty());
  Type("The plan");
  Press(Qt::Key_Tab);
  Type("%USERPROFILE%/Documents");
  EXPECT_TRUE(Says("strVarLinkFolder"));
  Type("/plan.txt");
  EXPECT_TRUE(Says("strVarLinkFile"));
  EXPECT_EQ(PathHere(), m_home + "/Documents/plan.txt");
  Picture(*window, "variable-link");
  Press(Qt::Key_Return);
  EXPECT_EQ(m_answer, (files::LinkFields{"The plan", "%USERPROFILE%/Documents/plan.txt"}));
}

// What a click would not do is said before the link is on the page.
TEST_F(VariableLinkWindow, TellsWhyALinkWouldNotWork) {
  Open({"Plan", "Users/a/x.txt"}, false);
  EXPECT_TRUE(Says("strVarLinkNoVariable"));
  EXPECT_THAT(FromQt(m_window->findChild<QLabel*>(QStringLiteral("note"))->text()),
              HasSubstr("local OneDrive folder"));
  Picture(*m_window, "variable-link-no-variable");
  auto* path = qobject_cast<QLineEdit*>(QApplication::focusWidget());
  ASSERT_NE(path, nullptr) << "with a text given, the path is next";
  const std::pair<const char*, const char*> rows[] = {{"%USERPROFILE%/gone", "strVarLinkMissing"},
                                                      {"%ONEDRIVE%/x", "strVarLinkNoRoot"},
                                                      {"%USERPROFILE%/../x", "strVarLinkRefused"},
                                                      {"%USERPROFILE%/run.sh", "strVarLinkAsks"},
                                                      {"%USERPROFILE%/it's.txt", "strVarLinkApostrophe"}};
  for (const auto& [link, key] : rows) {
    path->setText(QLatin1String(link));
    EXPECT_TRUE(Says(key)) << link;
  }
}

// An empty field is no link: the window stays and says what is missing.
TEST_F(VariableLinkWindow, StaysOpenWithoutTextOrPath) {
  MWinVarLink* window = Open({"", "%USERPROFILE%"});
  Press(Qt::Key_Return);
  EXPECT_FALSE(m_closed);
  Picture(*window, "variable-link-problem");
  Type("Home");
  for (auto* field : window->findChildren<QLineEdit*>()) {
    if (field->text() != u"Home") field->clear();
  }
  Press(Qt::Key_Return);
  EXPECT_FALSE(m_closed);
  Press(Qt::Key_Escape);
  EXPECT_TRUE(m_closed);
  EXPECT_EQ(m_answer, std::nullopt);
}

// A chosen file goes in by its variable, also one that would be misread, and names an empty text.
TEST_F(VariableLinkWindow, TakesAChosenFile) {
  MWinVarLink* window = Open({"", ""});
  Press(Qt::Key_F, Qt::AltModifier);
  auto* panel = WaitForWindow<QFileDialog>();
  ASSERT_NE(panel, nullptr);
  panel->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(ToQt(m_home + "/it's.txt"));
  Press(Qt::Key_Return);
  ASSERT_EQ(WaitForWindow<MWinVarLink>(), window);
  EXPECT_TRUE(Says("strVarLinkFile"));
  EXPECT_EQ(PathHere(), m_home + "/it's.txt");
  window->accept();
  EXPECT_EQ(m_answer, (files::LinkFields{"it's.txt", "%USERPROFILE%/it%27s.txt"}));
}

// A whole paragraph and a very long path neither widen the window nor reach into the next line.
TEST_F(VariableLinkWindow, KeepsItsSize) {
  MWinVarLink* window =
      Open({"\r\n" + std::string(300, 't') + "\r\n text", "%USERPROFILE%/" + std::string(900, 'p')});
  EXPECT_TRUE(Says("strVarLinkMissing"));
  EXPECT_LT(window->width(), 900);
  Picture(*window, "variable-link-long");
  window->accept();
  EXPECT_EQ(m_answer->text, std::string(300, 't') + " text");
}

}  // namespace
}  // namespace quill::ui
