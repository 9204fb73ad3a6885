#pragma once
#include <QWidget>

#include "shell/string_table.h"
#include "ui/find_replace_view.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace quill::ui {

/// What is looked for and what comes in its place, with the buttons that do it. Return in the first field
/// goes to the next match, Shift+Return to the one before, Return in the second replaces. GUI thread.
class FindFields final : public QWidget {
  Q_OBJECT
 public:
  explicit FindFields(const shell::StringTable& strings);

  PageSearch Search() const;
  QString Replacement() const;

  /// Tells how many matches there are and which is the current one.
  void ShowState(const PageState& state);

  /// Gives a field the keyboard, with its text selected.
  void EditFind();
  void EditReplacement();

 signals:
  void SearchChanged();
  void Find(quill::ui::SearchDirection direction);
  void Replace();
  void ReplaceAll();
  void GoToHighlightPosition();

 private:
  void Lay();
  void AddKeys();
  void OnText();
  QPushButton* NewButton(const char* key);
  QString Text(const char* key) const;

  const shell::StringTable& m_strings;
  QLineEdit* m_NSTFFind;
  QLineEdit* m_NSTFReplace;
  QCheckBox* m_NSCBoxCaseSentense;
  QLabel* m_count;
  QPushButton* m_next;
  QPushButton* m_previous;
  QPushButton* m_replace;
  QPushButton* m_replaceAll;
  QPushButton* m_goTo;
};

}  // namespace quill::ui
