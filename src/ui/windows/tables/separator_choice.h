#pragma once
#include <QGroupBox>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <string>
#include <string_view>

class QButtonGroup;
class QLineEdit;

namespace quill::ui {

/// What separates the cells of a table in a text: radio buttons, the last one with a field for a separator of
/// the user's own. GUI thread.
class SeparatorChoice final : public QGroupBox {
  Q_OBJECT
 public:
  /// `modes` are the texts of the buttons, in the order of their numbers from 0.
  SeparatorChoice(const QString& title, const QStringList& modes, const QString& fieldName);

  /// Chooses without telling. A number without a button stays the mode until another is chosen.
  void Choose(std::int64_t mode, std::string_view separator);

  std::int64_t mode() const { return m_mode; }
  std::string separator() const;

  /// Gives the keyboard to the button that is on, or to the first one.
  void FocusButtons();

 signals:
  /// The user has chosen another mode or typed another separator.
  void Changed();

 private:
  void Take(int mode);

  QButtonGroup* m_buttons;
  QLineEdit* m_field;
  std::int64_t m_mode = 0;
};

}  // namespace quill::ui
