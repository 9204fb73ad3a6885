#pragma once
#include <QPointer>
#include <QString>
#include <QWidget>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "ui/kit/problem_line.h"
#include "ui/windows/options/options_desk.h"

class QVBoxLayout;

namespace quill::ui {

/// How far the explanation under a control begins from its edge: under the title of a check box.
int ExplanationIndent(const QWidget& control);

/// Adds sentences to a column that a control is in, and has a screen reader say them with it.
void AddExplanation(QVBoxLayout& column, QWidget& control, const QString& text);

/// The control of one setting, with an explanation and, when a change was refused, the problem under it.
/// What the user changes goes to the desk by itself.
class SettingField : public QWidget {
  Q_OBJECT

 public:
  /// `key` is one of the settings table.
  SettingField(OptionsDesk& desk, std::string_view key);

  const std::string& key() const { return m_key; }

  /// What the label in front of the field belongs to, and what has the keyboard.
  QWidget* control() const { return m_control; }

  /// One or more sentences under the control, which a screen reader says, too.
  void Explain(const QString& text);

  /// Shows the setting as it is now, unless the user is changing it at this moment.
  void Refresh();

  /// Goes back to the stored value and tells why the change could not be made. What the user has typed since
  /// then stays. The keyboard stays where it is.
  void Refuse(const std::string& problem);

  /// Sends what was typed and not sent yet, when it is complete.
  virtual void Commit() {}

 protected:
  QString Text(std::string_view key) const;
  QString Format(std::string_view key, const std::vector<std::string>& arguments) const;
  OptionsDesk& desk() const { return m_desk; }
  QVBoxLayout& column() const { return *m_column; }

  /// The control; puts it into the column unless it is in one already.
  void SetControl(QWidget* control);

  /// The setting as the user wants it.
  std::string Stored() const { return m_desk.Text(m_key); }
  void Send(const std::string& text);

  /// The user has begun to change something: an old problem is over.
  void ForgetProblem();

  virtual void Show(const std::string& text) = 0;
  virtual bool IsBeingTyped() const { return false; }

 private:
  OptionsDesk& m_desk;
  std::string m_key;
  QVBoxLayout* m_column;
  QWidget* m_control = nullptr;
  QString m_explanation;
  QPointer<ProblemLine> m_problem;
};

}  // namespace quill::ui
