#pragma once
#include <QPointer>
#include <QWidget>
#include <string>

class QBoxLayout;
class QFormLayout;

namespace quill::ui {

/// Why a window cannot take what was entered.
struct Problem {
  std::string text;          ///< what is wrong and what would be right, in the user's language
  QWidget* field = nullptr;  ///< where it was entered; null: no single field
};

/// The line that tells one problem: right under its field, or at the end of the window's content. The field
/// gets the keyboard, and the text as its description, so that a screen reader says it. The line deletes
/// itself when the field is changed.
class ProblemLine : public QWidget {
  Q_OBJECT
 public:
  ProblemLine(const Problem& problem, QBoxLayout& content);
  ~ProblemLine() override;

  /// Takes the line out of the window. It is gone when this returns.
  void Remove();

 private:
  void Place(QBoxLayout& content);
  void TellScreenReader(const QString& text);
  void RemoveWhenFieldChanges();

  QPointer<QWidget> m_field;
  QString m_oldDescription;
  QPointer<QFormLayout> m_form;  // the one that holds the line, when it is not a column
};

}  // namespace quill::ui
