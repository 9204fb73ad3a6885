#include "ui/windows/sign_in/load_problem.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/kit/page_mnemonics.h"
#include "ui/kit/qt_text.h"
#include "ui/kit/wrapped_label.h"

namespace quill::ui {

LoadProblem::LoadProblem(const shell::StringTable& strings)
    : m_problem(NewWrappedLabel({})),
      m_hint(NewWrappedLabel({})),
      m_again(new QPushButton(ToQt(strings.Text("strTryAgain")))) {
  QFont large = m_problem->font();
  large.setPointSizeF(large.pointSizeF() * 1.35);
  m_problem->setFont(large);
  m_problem->setObjectName(QStringLiteral("problem"));
  m_again->setAutoDefault(false);
  auto* words = new QVBoxLayout;
  for (QLabel* label : {m_problem, m_hint}) {
    label->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    words->addWidget(label);
  }
  words->addSpacing(fontMetrics().lineSpacing() / 2);
  words->addWidget(m_again, 0, Qt::AlignHCenter);
  auto* middle = new QHBoxLayout;  // lines longer than this are hard to read
  middle->addStretch(1);
  middle->addLayout(words, 6);
  middle->addStretch(1);
  auto* column = new QVBoxLayout(this);
  column->addStretch(2);
  column->addLayout(middle);
  column->addStretch(3);
  connect(m_again, &QPushButton::clicked, this, &LoadProblem::TryAgain);
}

void LoadProblem::Tell(const QString& problem, const QString& hint) {
  m_problem->setText(problem);
  m_hint->setText(hint);
  m_again->setAccessibleDescription(problem + u' ' + hint);
  m_again->setFocus(Qt::TabFocusReason);  // with the mark that shows it
}

}  // namespace quill::ui
