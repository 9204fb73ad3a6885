#pragma once
#include <QTimer>
#include <memory>
#include <string>
#include <vector>

#include "shell/equation_request.h"
#include "tools/equation.h"
#include "ui/kit/modal_window.h"

class QLabel;
class QPushButton;
class QRadioButton;

namespace quill::ui {

class EquationPreview;
class EquationView;
class FormulaField;

/// Asks for a formula in LaTeX, shows it while it is typed, and makes an equation or a picture of it. The
/// view must outlive the window and serves one window after the other.
class MWinLaTeX final : public AnswerWindow<shell::EquationChoice> {
  Q_OBJECT
 public:
  MWinLaTeX(const shell::StringTable& strings, EquationView& view, const shell::EquationRequest& request,
            Done done);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  using Outcome = Result<shell::EquationChoice, Problem>;
  enum class Tone { Hint, Problem };

  /// What came of the last `ButtonOKClick`.
  Outcome Read() override { return m_outcome; }

  void Connect();
  QWidget* NewFormulaPart(const std::vector<std::string>& recent);
  QPushButton* NewRecentButton(const std::vector<std::string>& recent);
  QWidget* NewFormRow();
  QWidget* NewConstructPart();

  void OnChanged();
  void ButtonConvertClick();
  void SendLaTex2Browser();
  void OnTold(const QString& problem);
  void Tell(const QString& text, Tone tone);
  void Write(const QString& text, Tone tone);
  QString QuietHint() const;
  void ButtonOKClick();
  void Wait();
  void StopWaiting();
  void Finish(Outcome outcome);
  tools::EquationForm Form() const;
  shell::EquationChoice Choice(std::string html) const;

  EquationView& m_view;
  FormulaField* m_field;
  EquationPreview* m_preview;
  QLabel* m_note;
  QPushButton* m_delimit;
  QRadioButton* m_asEquation;
  QRadioButton* m_asPicture;
  QTimer m_typing;
  QTimer m_slow;
  Tone m_tone = Tone::Hint;
  bool m_isRefused = false;  ///< the window says why, so the note keeps quiet
  Outcome m_outcome{Failure<Problem>{}};
  /// While an equation is being made; its callback counts as long as it lives.
  std::shared_ptr<bool> m_waiting;
};

}  // namespace quill::ui
