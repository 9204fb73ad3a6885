#include "ui/windows/equation/equation_preview.h"

#include <QLabel>
#include <QStackedLayout>

#include "ui/equation_view.h"
#include "ui/kit/qt_text.h"
#include "ui/kit/wrapped_label.h"

namespace quill::ui {
namespace {

using namespace std::chrono_literals;
using tools::EquationForm;

constexpr int kLines = 7;
constexpr int kCharacters = 46;
/// A view that is warm answers long before; words that come and go would flicker.
constexpr auto kSlow = 400ms;

}  // namespace

EquationPreview::EquationPreview(const shell::StringTable& strings, EquationView& view)
    : m_strings(strings),
      m_view(view),
      m_widget(&view.Widget()),
      m_words(NewWrappedLabel({})),
      m_stack(new QStackedLayout(this)) {
  setFrameStyle(StyledPanel | Sunken);
  setBackgroundRole(QPalette::Base);
  setAutoFillBackground(true);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);  // web views ask for the size of a page
  setMinimumSize(fontMetrics().averageCharWidth() * kCharacters, fontMetrics().lineSpacing() * kLines);
  m_words->setAlignment(Qt::AlignCenter);
  m_words->setMargin(fontMetrics().lineSpacing());
  m_words->setForegroundRole(QPalette::Text);
  m_stack->setContentsMargins(frameWidth(), frameWidth(), frameWidth(), frameWidth());
  m_stack->addWidget(m_words);
  m_stack->addWidget(m_widget);
  m_slow.setSingleShot(true);
  m_slow.setInterval(kSlow);
  connect(&m_slow, &QTimer::timeout, this, [this] { ShowWords(ToQt(m_strings.Text("strEquationLoading"))); });
  NameForScreenReaders();
}

EquationPreview::~EquationPreview() {
  GiveBack();
}

void EquationPreview::Show(const QString& formula, EquationForm form) {
  if (!m_isOpen) return;
  m_formula = formula;
  m_form = form;
  NameForScreenReaders();
  Ask();
}

void EquationPreview::Ask() {
  const std::weak_ptr<bool> isOpen = m_isOpen;
  if (Works(m_form)) {
    m_probed.reset();
    ShowView();
    return m_view.Show(m_formula, m_form, [this, isOpen](const QString& problem) {
      if (!isOpen.expired()) emit Told(problem);
    });
  }
  // An empty formula has no faults: what is said against it is said against the view.
  if (m_probed == m_form) return;
  m_probed = m_form;
  m_slow.start();
  m_view.Show({}, m_form, [this, isOpen, form = m_form](const QString& problem) {
    if (!isOpen.expired()) OnProbed(form, problem);
  });
}

void EquationPreview::OnProbed(EquationForm form, const QString& problem) {
  m_probed.reset();
  if (!problem.isEmpty()) {
    ShowWords(problem);
    emit Told({});
    return;
  }
  Works(form) = true;
  ShowView();
  if (m_formula.isEmpty()) return emit Told({});
  Ask();
}

void EquationPreview::ShowView() {
  m_slow.stop();
  m_stack->setCurrentWidget(m_widget);
  setAccessibleDescription({});
}

void EquationPreview::ShowWords(const QString& words) {
  m_slow.stop();
  m_words->setText(words);
  m_stack->setCurrentWidget(m_words);
  setAccessibleDescription(words);
}

bool& EquationPreview::Works(EquationForm form) {
  return m_works[static_cast<std::size_t>(form)];
}

void EquationPreview::NameForScreenReaders() {
  const QString formula = m_formula.simplified();
  const QString name = formula.isEmpty() ? ToQt(m_strings.Text("strTablePreview")) : formula;
  setAccessibleName(name);
  m_widget->setAccessibleName(name);
}

void EquationPreview::GiveBack() {
  m_isOpen.reset();
  m_slow.stop();
  if (!m_widget || !isAncestorOf(m_widget)) return;
  m_widget->setAccessibleName({});
  m_widget->setParent(nullptr);
}

}  // namespace quill::ui
