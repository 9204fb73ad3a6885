#pragma once
#include <QObject>
#include <QString>
#include <QTemporaryDir>
#include <deque>
#include <filesystem>
#include <functional>

class QDialog;

namespace quill::ui {

class Program;

/// Plays a session with the practice notebook as a user would: opens it, selects, chooses from the tray menu.
/// Says each step on standard output with the page's fragment before and after, leaves pictures of the screen
/// in a folder, and ends the program with status 0, or 1 when a step had not the effect it should have. GUI
/// thread.
class Tour final : public QObject {
 public:
  Tour(Program& program, std::filesystem::path folder);

 private:
  using Step = std::function<void()>;

  /// What is played, from the first page to the last.
  void Plan();
  void PlanFirstSteps();
  void PlanTables();
  void PlanCalendarAndPictures();
  void PlanEngines();
  void Next();
  void Say(const QString& line);
  void Fail(const QString& why);
  void Picture(const QString& name);

  // Each adds steps to the plan.
  void OpenNotebook();
  void OpenPage(const QString& title);
  void SelectBlock(const QString& selector);
  void CaretToEnd();
  void Select(const QString& text);
  void ShowSelection(const QString& caption);
  void ChooseFromMenu(const QString& action, const QString& picture);
  /// Fills a dialog in; what it returns says when everything to be seen is there.
  using Fill = std::function<std::function<bool()>(QDialog&)>;
  /// Runs an action that asks: fills the dialog in, takes a picture, and presses its OK.
  void AnswerDialog(const QString& action, const QString& picture, Fill fill);
  void Expect(const QString& text);
  void TakePicture(const QString& name);
  void Tell(const QString& line);

  void RunAction(const QString& action);
  /// Goes on with `then` once the condition holds; the tour fails, saying what was awaited, when it never
  /// does.
  void Await(int looksLeft, const QString& what, const std::function<bool()>& holds,
             const std::function<void()>& then);

  Program& m_program;
  QTemporaryDir m_pictures;  ///< files that a dialog is given
  std::filesystem::path m_folder;
  std::deque<Step> m_steps;
};

}  // namespace quill::ui
