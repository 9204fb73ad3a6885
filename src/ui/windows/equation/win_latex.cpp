#include "ui/windows/equation/win_latex.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

#include "ui/equation_view.h"
#include "ui/kit/dark.h"
#include "ui/kit/page_mnemonics.h"
#include "ui/kit/qt_text.h"
#include "ui/kit/wrapped_label.h"
#include "ui/windows/equation/equation_preview.h"
#include "ui/windows/equation/formula_field.h"

namespace quill::ui {
namespace {

using namespace std::chrono_literals;
using tools::EquationForm;

/// Shorter than a glance, longer than the time between two letters of quick typing.
constexpr auto kTypingPause = 80ms;
constexpr auto kSlow = 500ms;

QColor Red(const QPalette& palette) {
  return IsDark(palette) ? QColor(0xff, 0x8a, 0x80) : QColor(0xb3, 0x1b, 0x1b);
}

}  // namespace

MWinLaTeX::MWinLaTeX(const shell::StringTable& strings, EquationView& view,
                     const shell::EquationRequest& request, Done done)
    : AnswerWindow(strings, "titleLaTeXEquation", std::move(done)),
      m_view(view),
      m_field(new FormulaField),
      m_preview(new EquationPreview(strings, view)),
      m_note(NewWrappedLabel({})),
      m_delimit(new QPushButton(Text("strEquationDelimit"))),
      m_asEquation(new QRadioButton(Text("strEquationNative"))),
      m_asPicture(new QRadioButton(Text("strEquationPicture"))) {
  auto* page = new QWidget;
  auto* row = new QHBoxLayout(page);
  row->setContentsMargins({});
  row->setSpacing(fontMetrics().averageCharWidth() * 2);
  row->addWidget(NewFormulaPart(request.recent), 3);
  row->addWidget(NewConstructPart(), 2);
  content().addWidget(page, 1);
  AssignMnemonics(*page, {});
  SetOkText("strInsert");
  (request.asPicture ? m_asPicture : m_asEquation)->setChecked(true);
  m_field->Begin(request.formula);
  m_field->document()->clearUndoRedoStacks();
  m_field->setFocus();
  Connect();
  SendLaTex2Browser();
  resize(fontMetrics().averageCharWidth() * 112, fontMetrics().lineSpacing() * 26);
}

void MWinLaTeX::Connect() {
  m_typing.setSingleShot(true);
  m_typing.setInterval(kTypingPause);
  m_slow.setSingleShot(true);
  m_slow.setInterval(kSlow);
  connect(&m_typing, &QTimer::timeout, this, &MWinLaTeX::SendLaTex2Browser);
  connect(&m_slow, &QTimer::timeout, this, [this] { Write(Text("strEquationWorking"), Tone::Hint); });
  connect(m_field, &FormulaField::textChanged, this, &MWinLaTeX::OnChanged);
  connect(m_preview, &EquationPreview::Told, this, &MWinLaTeX::OnTold);
  connect(m_asPicture, &QRadioButton::toggled, this, &MWinLaTeX::ButtonConvertClick);
  // The equation takes its time: `Read` is asked when it is there.
  disconnect(&buttons(), &QDialogButtonBox::accepted, this, nullptr);
  connect(&buttons(), &QDialogButtonBox::accepted, this, &MWinLaTeX::ButtonOKClick);
  connect(this, &QDialog::finished, this, [this] {
    StopWaiting();
    m_typing.stop();
    m_preview->GiveBack();
  });
}

void MWinLaTeX::OnChanged() {
  StopWaiting();
  m_isRefused = false;
  m_typing.start();
}

void MWinLaTeX::ButtonConvertClick() {
  StopWaiting();
  ClearProblem();
  m_isRefused = false;
  SendLaTex2Browser();
}

void MWinLaTeX::SendLaTex2Browser() {
  m_typing.stop();
  const std::string formula = m_field->Formula();
  m_delimit->setVisible(m_field->LacksDelimiters());
  // A problem stays until the answer to this formula: it would flicker with every letter.
  if (formula.empty() || m_tone == Tone::Hint) Tell(QuietHint(), Tone::Hint);
  m_preview->Show(ToQt(formula), Form());
}

void MWinLaTeX::OnTold(const QString& problem) {
  if (m_typing.isActive()) return;  // said of what is not there any more
  const bool isProblem = !problem.isEmpty() && !m_field->Formula().empty();
  Tell(isProblem ? problem : QuietHint(), isProblem ? Tone::Problem : Tone::Hint);
}

QString MWinLaTeX::QuietHint() const {
  if (m_field->Formula().empty()) return Text("strEquationHint");
  return m_field->HasPlaceholder() ? Text("strEquationFillIn") : QString();
}

void MWinLaTeX::Tell(const QString& text, Tone tone) {
  if (!m_isRefused && !m_waiting) Write(text, tone);
}

void MWinLaTeX::Write(const QString& text, Tone tone) {
  m_tone = tone;
  m_note->setText(text);
  m_field->setAccessibleDescription(text);
  QPalette colors = palette();
  if (tone == Tone::Problem) colors.setColor(QPalette::WindowText, Red(colors));
  m_note->setPalette(colors);
  m_note->setForegroundRole(tone == Tone::Problem ? QPalette::WindowText : QPalette::PlaceholderText);
}

void MWinLaTeX::changeEvent(QEvent* event) {
  AnswerWindow::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) Write(m_note->text(), m_tone);
}

EquationForm MWinLaTeX::Form() const {
  return m_asPicture->isChecked() ? EquationForm::Picture : EquationForm::Native;
}

shell::EquationChoice MWinLaTeX::Choice(std::string html) const {
  const QString text = ToQt(m_field->Text()).trimmed();
  return {std::move(html), FromQt(text), m_asPicture->isChecked()};
}

void MWinLaTeX::ButtonOKClick() {
  const QString formula = ToQt(m_field->Formula());
  if (formula.isEmpty()) return Finish(Refuse(m_field, "msgConvertLaTeXFirst"));
  Wait();
  const auto fail = [this](const std::string& words) { Finish(Failure<Problem>{{words, m_field}}); };
  const std::weak_ptr<bool> waiting = m_waiting;
  if (Form() == EquationForm::Native) {
    return m_view.Native(formula, [this, waiting, fail](const Result<std::string>& mathMl) {
      if (waiting.expired()) return;
      if (!mathMl.ok()) return fail(mathMl.error());
      if (mathMl->empty()) return Finish(Refuse(m_field, "msgConvertLaTeXFirst"));
      Finish(Choice(tools::ConvertMathMLToONMathML(*mathMl)));
    });
  }
  m_view.Picture(formula, [this, waiting, fail](const Result<EquationPicture>& picture) {
    if (waiting.expired()) return;
    if (!picture.ok()) return fail(picture.error());
    auto html = tools::PictureHtml(FromQt(picture->dataUrl), picture->size);
    if (!html.ok()) return Finish(Refuse(m_field, "msgCreateLaTeXError"));
    Finish(Choice(std::move(*html)));
  });
}

void MWinLaTeX::Wait() {
  ClearProblem();
  m_isRefused = false;
  m_waiting = std::make_shared<bool>(true);
  if (okButton().hasFocus()) m_field->setFocus();  // else Return, still held down, would press Cancel
  okButton().setEnabled(false);
  m_slow.start();
}

void MWinLaTeX::StopWaiting() {
  m_waiting.reset();
  m_slow.stop();
  okButton().setEnabled(true);
}

void MWinLaTeX::Finish(Outcome outcome) {
  StopWaiting();
  if (!outcome.ok()) Write({}, Tone::Hint);
  m_isRefused = !outcome.ok();
  m_outcome = std::move(outcome);
  accept();
}

}  // namespace quill::ui
