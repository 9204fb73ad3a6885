#pragma once
#include <QTemporaryDir>
#include <chrono>
#include <filesystem>
#include <functional>
#include <future>
#include <memory>
#include <string>

#include "platform/practice/practice_desktop.h"
#include "platform/qt/qt_pasteboard.h"
#include "shell/script_table.h"
#include "shell/string_table.h"
#include "ui/web_views.h"

namespace quill::test {

/// Runs the GUI thread's events until `met` is true; false when that takes longer than the deadline.
bool WaitUntil(const std::function<bool()>& met,
               std::chrono::milliseconds deadline = std::chrono::seconds(10));

/// A practice notebook in a folder of its own, with the desktop and the pasteboard that commands see. The
/// methods wait for the notebook's answers.
class PracticeWorld {
 public:
  PracticeWorld();
  ~PracticeWorld();

  /// Closes the notebook and opens a new one on the same folder.
  void Reopen();

  /// Runs a script on a command thread while this thread serves the window.
  platform::ScriptResult RunScript(const std::string& script);

  /// Does some work on a command thread, likewise.
  void OnCommandThread(const std::function<void()>& work);

  bool OpenPage(const QString& title);
  bool SelectText(const QString& text);
  bool SelectBlock(const QString& selector);
  bool SelectPage();
  bool CaretToEnd();
  std::string SelectionFragment();
  std::string PageHtml();
  std::string VisibleText();
  std::string PageTitle();

  ui::PracticeNotebook& notebook() { return *m_notebook; }
  std::filesystem::path folder() const { return m_dir.path().toStdString() + "/Practice"; }

  const shell::ScriptTable scripts = shell::BuiltInScripts();
  platform::qt::QtPasteboard pasteboard;

 private:
  using Done = std::function<void(bool)>;
  using GotText = std::function<void(QString)>;
  bool Await(const std::function<void(Done)>& start);
  std::string AwaitText(const std::function<void(GotText)>& start);

  QTemporaryDir m_dir;
  shell::StringTable m_strings;
  std::unique_ptr<ui::PracticeNotebook> m_notebook;
};

}  // namespace quill::test
