#include "equation/equation_stack.h"

#include <QEvent>
#include <QPointer>
#include <QTimer>
#include <QWebEngineProfile>
#include <QWebEngineView>
#include <memory>

#include "equation/equation_page.h"
#include "equation/mathjax_source.h"

namespace quill::equation {

using tools::EquationForm;

namespace {

/// What comes from a page lands inside a conditional comment, which it must not end.
bool IsMathMl(const QString& text) {
  return text.startsWith("<math") && !text.contains("-->") && !text.contains("<![endif]");
}

}  // namespace

EquationStack::EquationStack(const ui::EquationOptions& options)
    : m_profile(new QWebEngineProfile(this)),
      m_source(new MathJaxSource(options.mathJax, options.networkAddress, m_profile)),
      m_guard(new RequestGuard(options.networkAddress, m_profile)) {
  m_profile->setUrlRequestInterceptor(m_guard);
  m_profile->installUrlSchemeHandler(PageAddress(EquationForm::Native).scheme().toLatin1(), m_source);
  m_native = Add(EquationForm::Native, options);
  m_picture = Add(EquationForm::Picture, options);
  ApplyColors();
}

EquationStack::~EquationStack() {
  delete m_native;  // with their pages, before the profile
  delete m_picture;
}

QWebEngineView* EquationStack::Add(EquationForm form, const ui::EquationOptions& options) {
  auto* view = new QWebEngineView(this);
  view->setContextMenuPolicy(Qt::PreventContextMenu);
  view->setAcceptDrops(false);
  view->setPage(new EquationPage(form, options, m_profile, view));
  addWidget(view);
  return view;
}

EquationPage& EquationStack::Page(EquationForm form) {
  QWebEngineView* view = form == EquationForm::Native ? m_native : m_picture;
  return static_cast<EquationPage&>(*view->page());
}

void EquationStack::Raise(EquationForm form) {
  setCurrentWidget(form == EquationForm::Native ? m_native : m_picture);
}

void EquationStack::ApplyColors() {
  for (const EquationForm form : {EquationForm::Native, EquationForm::Picture}) {
    Page(form).SetColors(palette().color(QPalette::Text), palette().color(QPalette::Base));
  }
}

void EquationStack::changeEvent(QEvent* event) {
  QStackedWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ApplicationPaletteChange)
    ApplyColors();
}

Equations::Equations(const ui::EquationOptions& options)
    : m_strings(options.strings),
      m_hasMathJax(!options.mathJax.empty() || !options.networkAddress.isEmpty()),
      m_stack(new EquationStack(options)) {}

Equations::~Equations() {
  delete m_stack;
}

bool Equations::FailWithoutMathJax(const std::function<void(const QString&)>& fail) {
  if (m_hasMathJax) return false;
  const auto words = QString::fromStdString(std::string(m_strings.Text("errMathJaxMissing")));
  QTimer::singleShot(0, this, [fail, words] { fail(words); });
  return true;
}

void Equations::Warm(EquationForm form) {
  if (m_hasMathJax) m_stack->Page(form).Warm();
}

void Equations::Show(const QString& formula, EquationForm form, Shown done) {
  const Shown last = [this, number = ++m_shown, done = std::move(done)](const QString& problem) {
    if (number == m_shown && done) done(problem);
  };
  if (FailWithoutMathJax(last)) return;
  m_stack->Raise(form);
  m_stack->Page(form).Enqueue({formula, false, [last](const Typeset& typeset) { last(typeset.problem); }});
}

void Equations::Native(const QString& formula, GotMathMl done) {
  if (FailWithoutMathJax([done](const QString& words) { done(Failure{words.toStdString()}); })) return;
  m_stack->Page(EquationForm::Native)
      .Enqueue({formula, true, [this, done](const Typeset& typeset) {
                  if (typeset.failed) return done(Failure{typeset.problem.toStdString()});
                  const QString mathMl = typeset.result.toString();
                  if (mathMl.isEmpty())
                    return done(Failure{std::string(m_strings.Text("msgConvertLaTeXFirst"))});
                  if (!IsMathMl(mathMl)) {
                    return done(Failure{std::string(m_strings.Text("msgCreateLaTeXError"))});
                  }
                  done(mathMl.toStdString());
                }});
}

void Equations::Picture(const QString& formula, GotPicture done) {
  if (FailWithoutMathJax([done](const QString& words) { done(Failure{words.toStdString()}); })) return;
  m_stack->Page(EquationForm::Picture)
      .Enqueue({formula, true, [this, done](const Typeset& typeset) {
                  if (typeset.failed) return done(Failure{typeset.problem.toStdString()});
                  const QVariantList values = typeset.result.toList();
                  if (values.size() != 3 || !tools::PictureHtml(values[0].toString().toStdString())) {
                    return done(Failure{std::string(m_strings.Text("msgCreateLaTeXError"))});
                  }
                  done(ui::EquationPicture{values[0].toString(), {values[1].toInt(), values[2].toInt()}});
                }});
}

QStringList Equations::RefusedAddresses() const {
  return m_stack->Guard().Refused();
}

QStringList Equations::MissingFiles() const {
  return m_stack->Source().Missing();
}

}  // namespace quill::equation
