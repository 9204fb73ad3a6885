#include "ui/kit/modal_window.h"

#include <QLayout>
#include <QPushButton>
#include <QShortcut>
#include <QShowEvent>
#include <QVBoxLayout>

#include "ui/kit/qt_text.h"
#include "ui/kit/window_place.h"

namespace quill::ui {

ModalWindow::ModalWindow(const shell::StringTable& strings, std::string_view titleKey)
    : m_strings(strings),
      m_content(new QVBoxLayout),
      m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel)) {
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowModality(Qt::ApplicationModal);
  setWindowTitle(Text(titleKey));
  auto* column = new QVBoxLayout(this);
  column->addLayout(m_content, 1);
  column->addWidget(m_buttons);
  okButton().setText(Text("strOk"));
  okButton().setDefault(true);
  m_buttons->button(QDialogButtonBox::Cancel)->setText(Text("strCancel"));
  connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
    auto* finish = new QShortcut(QKeySequence(QKeyCombination(Qt::ControlModifier, key)), this);
    connect(finish, &QShortcut::activated, this, [this] {
      if (QPushButton* ok = m_buttons->button(QDialogButtonBox::Ok)) ok->click();
    });
  }
}

QString ModalWindow::Text(std::string_view key) const {
  return ToQt(m_strings.Text(key));
}

QString ModalWindow::Format(std::string_view key, const std::vector<std::string>& arguments) const {
  return ToQt(m_strings.Format(key, arguments));
}

Failure<Problem> ModalWindow::Refuse(QWidget* field, std::string_view problemKey,
                                     const std::vector<std::string>& arguments) const {
  return Failure<Problem>{{m_strings.Format(problemKey, arguments), field}};
}

QPushButton& ModalWindow::okButton() {
  return *m_buttons->button(QDialogButtonBox::Ok);
}

void ModalWindow::SetOkText(std::string_view key) {
  okButton().setText(Text(key));
}

void ModalWindow::OnlyClose() {
  m_buttons->setStandardButtons(QDialogButtonBox::Close);
  QPushButton* close = m_buttons->button(QDialogButtonBox::Close);
  close->setText(Text("strClose"));
  close->setDefault(true);
}

QPushButton& ModalWindow::AddButton(std::string_view key, QDialogButtonBox::ButtonRole role) {
  return *m_buttons->addButton(Text(key), role);
}

void ModalWindow::accept() {
  ClearProblem();
  if (TakeAnswer()) QDialog::accept();
}

void ModalWindow::done(int result) {
  QDialog::done(result);
  Deliver();
}

void ModalWindow::ShowProblem(const Problem& problem) {
  ClearProblem();
  m_problem = new ProblemLine(problem, *m_content);
  layout()->activate();
  const int needed = layout()->totalHeightForWidth(width());
  if (needed > height()) resize(width(), needed);
}

void ModalWindow::ClearProblem() {
  if (m_problem) m_problem->Remove();
}

void ModalWindow::showEvent(QShowEvent* event) {
  if (!event->spontaneous() && !m_placed) {
    m_placed = true;
    PutButtonsLastInTabOrder();
    FocusFirstField();
    CentreOnPointerScreen(*this);
  }
  QDialog::showEvent(event);
}

void ModalWindow::PutButtonsLastInTabOrder() {
  QWidget* last = previousInFocusChain();
  while (last != this && m_buttons->isAncestorOf(last)) last = last->previousInFocusChain();
  for (int i = 0; i < m_buttons->layout()->count(); ++i) {
    QWidget* button = m_buttons->layout()->itemAt(i)->widget();
    if (button == nullptr) continue;
    if (last != this) setTabOrder(last, button);
    last = button;
  }
}

void ModalWindow::FocusFirstField() {
  if (focusWidget() != nullptr) return;
  for (QWidget* next = nextInFocusChain(); next != this; next = next->nextInFocusChain()) {
    if (m_buttons->isAncestorOf(next)) continue;
    if ((next->focusPolicy() & Qt::TabFocus) == 0 || !next->isEnabled() || next->isHidden()) continue;
    return next->setFocus(Qt::TabFocusReason);
  }
  for (QAbstractButton* button : m_buttons->buttons()) {
    auto* push = qobject_cast<QPushButton*>(button);
    if (push != nullptr && push->isDefault()) push->setFocus(Qt::TabFocusReason);
  }
}

}  // namespace quill::ui
