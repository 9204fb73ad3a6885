#include "ui/windows/find_replace/find_fields.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>

#include "ui/kit/qt_text.h"

namespace quill::ui {
namespace {

std::string CountText(const shell::StringTable& strings, const PageState& state) {
  const std::string all = std::to_string(state.matchCount);
  if (state.currentMatch > 0)
    return strings.Format("strFindReplaceCount", {std::to_string(state.currentMatch), all});
  if (state.matchCount == 0) return std::string(strings.Text("strFindReplaceNoMatches"));
  if (state.matchCount == 1) return std::string(strings.Text("strFindReplaceOneMatch"));
  return strings.Format("strFindReplaceMatches", {all});
}

}  // namespace

FindFields::FindFields(const shell::StringTable& strings)
    : m_strings(strings),
      m_NSTFFind(new QLineEdit),
      m_NSTFReplace(new QLineEdit),
      m_NSCBoxCaseSentense(new QCheckBox(Text("strFindReplaceCase"))),
      m_count(new QLabel),
      m_next(NewButton("strFindReplaceNext")),
      m_previous(NewButton("strFindReplacePrevious")),
      m_replace(NewButton("strFindReplaceOne")),
      m_replaceAll(NewButton("strFindReplaceAll")),
      m_goTo(NewButton("strFindReplaceGoTo")) {
  Lay();
  AddKeys();
  connect(m_NSTFFind, &QLineEdit::textChanged, this, &FindFields::OnText);
  connect(m_NSCBoxCaseSentense, &QCheckBox::toggled, this, &FindFields::SearchChanged);
  connect(m_next, &QPushButton::clicked, this, [this] { emit Find(SearchDirection::Forwards); });
  connect(m_previous, &QPushButton::clicked, this, [this] { emit Find(SearchDirection::Backwards); });
  connect(m_replace, &QPushButton::clicked, this, &FindFields::Replace);
  connect(m_replaceAll, &QPushButton::clicked, this, &FindFields::ReplaceAll);
  connect(m_goTo, &QPushButton::clicked, this, &FindFields::GoToHighlightPosition);
  ShowState({});
  OnText();
}

/// At once: somebody who types fast presses Return before the page has answered.
void FindFields::OnText() {
  for (QPushButton* button : {m_next, m_previous, m_replace, m_replaceAll})
    button->setEnabled(!m_NSTFFind->text().isEmpty());
  emit SearchChanged();
}

void FindFields::Lay() {
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins({});
  int row = 0;
  const auto add = [&](const char* key, QLineEdit* field, QPushButton* first, QPushButton* second) {
    auto* label = new QLabel(Text(key));
    label->setBuddy(field);
    field->setAccessibleName(WithoutColon(Text(key)));
    grid->addWidget(label, row, 0);
    grid->addWidget(field, row, 1);
    grid->addWidget(first, row, 2);
    grid->addWidget(second, row++, 3);
  };
  add("strFindReplaceFind", m_NSTFFind, m_next, m_previous);
  add("strFindReplaceWith", m_NSTFReplace, m_replace, m_replaceAll);
  auto* line = new QHBoxLayout;
  line->addWidget(m_NSCBoxCaseSentense);
  line->addStretch(1);
  line->addWidget(m_count);
  grid->addLayout(line, row, 1);
  grid->addWidget(m_goTo, row, 2, 1, 2);
  grid->setColumnStretch(1, 1);
  m_count->setObjectName(QStringLiteral("count"));
  setTabOrder(m_NSTFFind, m_NSTFReplace);
  setTabOrder(m_NSTFReplace, m_NSCBoxCaseSentense);
  setTabOrder(m_NSCBoxCaseSentense, m_next);
}

void FindFields::AddKeys() {
  const auto add = [this](QWidget* where, const QList<QKeySequence>& keys, auto work) {
    auto* shortcut = new QShortcut(where);
    shortcut->setKeys(keys);
    shortcut->setContext(where == this ? Qt::WindowShortcut : Qt::WidgetShortcut);
    connect(shortcut, &QShortcut::activated, this, work);
  };
  const auto forwards = [this] { m_next->click(); };
  const auto backwards = [this] { m_previous->click(); };
  add(m_NSTFFind, {Qt::Key_Return, Qt::Key_Enter}, forwards);
  add(m_NSTFFind, {Qt::SHIFT | Qt::Key_Return, Qt::SHIFT | Qt::Key_Enter}, backwards);
  add(m_NSTFReplace, {Qt::Key_Return, Qt::Key_Enter}, [this] { m_replace->click(); });
  add(this, {Qt::Key_F3}, forwards);
  add(this, {Qt::SHIFT | Qt::Key_F3}, backwards);
  add(this, {QKeySequence(QKeySequence::Find)}, [this] { EditFind(); });
  add(this, {Qt::CTRL | Qt::Key_H}, [this] { EditReplacement(); });
}

QPushButton* FindFields::NewButton(const char* key) {
  auto* button = new QPushButton(Text(key));
  button->setAutoDefault(false);
  return button;
}

QString FindFields::Text(const char* key) const {
  return ToQt(m_strings.Text(key));
}

PageSearch FindFields::Search() const {
  return {m_NSTFFind->text(), m_NSCBoxCaseSentense->isChecked()};
}

QString FindFields::Replacement() const {
  return m_NSTFReplace->text();
}

void FindFields::ShowState(const PageState& state) {
  const bool isSearching = !m_NSTFFind->text().isEmpty();
  const QString count = isSearching ? ToQt(CountText(m_strings, state)) : QString();
  m_count->setText(count);
  // A screen reader says it with the field.
  m_NSTFFind->setAccessibleDescription(count);
  m_goTo->setEnabled(state.currentMatch > 0);
}

void FindFields::EditFind() {
  m_NSTFFind->setFocus();
  m_NSTFFind->selectAll();
}

void FindFields::EditReplacement() {
  m_NSTFReplace->setFocus();
  m_NSTFReplace->selectAll();
}

}  // namespace quill::ui
