#pragma once
#include <QFrame>
#include <QPointer>
#include <QTimer>
#include <array>
#include <memory>
#include <optional>

#include "shell/string_table.h"
#include "tools/equation.h"

class QLabel;
class QStackedLayout;

namespace quill::ui {

class EquationView;

/// The place where a window shows the equation view's widget; in its stead there is plain text while the view
/// starts and when it cannot work. What cannot work is tried again with every formula. GUI thread.
class EquationPreview final : public QFrame {
  Q_OBJECT
 public:
  EquationPreview(const shell::StringTable& strings, EquationView& view);
  ~EquationPreview() override;

  /// Shows a plain formula; an empty one shows nothing. The last call wins.
  void Show(const QString& formula, tools::EquationForm form);

  /// Lets the view's widget go: another window may have it. Nothing is shown or told from then on.
  void GiveBack();

 signals:
  /// What is wrong with the formula that is shown; empty when nothing is.
  void Told(const QString& problem);

 private:
  void Ask();
  void OnProbed(tools::EquationForm form, const QString& problem);
  void ShowView();
  void ShowWords(const QString& words);
  bool& Works(tools::EquationForm form);
  void NameForScreenReaders();

  const shell::StringTable& m_strings;
  EquationView& m_view;
  QPointer<QWidget> m_widget;
  QLabel* m_words;
  QStackedLayout* m_stack;
  QTimer m_slow;
  QString m_formula;
  tools::EquationForm m_form = tools::EquationForm::Native;
  std::array<bool, 2> m_works{};
  std::optional<tools::EquationForm> m_probed;
  /// Callbacks count as long as it lives.
  std::shared_ptr<bool> m_isOpen = std::make_shared<bool>(true);
};

}  // namespace quill::ui
