#pragma once
#include <gtest/gtest.h>

#include <QVariant>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "gui_world.h"
#include "ui/find_replace_view.h"

namespace quill::ui {

/// An editor's view on the screen, with calls that wait for their answer. One for all tests of a program:
/// starting an engine takes half a second.
class PageWorld {
 public:
  PageWorld();
  ~PageWorld();

  /// The world of this test run, and its end, which must come before the application's.
  static PageWorld& Warm();
  static void End();

  PageState Show(const std::string& html);
  PageState Mark(std::string_view text, bool matchesCase = false);
  PageState Find(std::string_view text, bool matchesCase = false,
                 SearchDirection direction = SearchDirection::Forwards);
  PageState Replace(std::string_view text, std::string_view replacement, bool matchesCase = false);
  PageState ReplaceAll(std::string_view text, std::string_view replacement, bool matchesCase = false);
  std::string Json();
  /// "kind: before -> after", one for each changed text.
  std::vector<std::string> Changes();

  /// What an expression is in the world of the program's scripts, and in that of the page.
  QVariant Script(const std::string& code);
  QVariant PageScript(const std::string& code);
  std::string Text(const std::string& code) { return Script(code).toString().toStdString(); }
  /// The page's text as it is drawn.
  std::string Drawn() { return Text("document.body.innerText"); }
  /// The texts of the marks, the current one's in brackets.
  std::string Marks();

  FindReplaceView& view() { return *m_view; }

 private:
  PageState Await(const std::function<void(FindReplaceView::Answered)>& start);
  QVariant Run(const std::string& code, unsigned world);

  shell::StringTable m_strings;
  std::unique_ptr<FindReplaceView> m_view;
};

}  // namespace quill::ui
