#pragma once
#include <QObject>
#include <QString>
#include <deque>
#include <filesystem>
#include <functional>

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

  void Plan();
  void Next();
  void Say(const QString& line);
  void Fail(const QString& why);
  void Picture(const QString& name);

  // Each adds steps to the plan.
  void OpenPage(const QString& title);
  void Select(const QString& text);
  void ShowSelection(const QString& caption);
  void ChooseFromMenu(const QString& action, const QString& picture);
  void Expect(const QString& text);
  void TakePicture(const QString& name);
  void Tell(const QString& line);

  Program& m_program;
  std::filesystem::path m_folder;
  std::deque<Step> m_steps;
};

}  // namespace quill::ui
