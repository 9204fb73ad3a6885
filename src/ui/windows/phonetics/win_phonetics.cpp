#include "ui/windows/phonetics/win_phonetics.h"

#include <QComboBox>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/kit/page_mnemonics.h"
#include "ui/kit/qt_text.h"
#include "ui/windows/phonetics/phonetic_view.h"

namespace quill::ui {
namespace {

constexpr int kWidthInCharacters = 76;

struct LanguageName {
  std::string_view language;
  std::string_view key;
};

constexpr LanguageName kLanguageNames[] = {{"Chinese", "strPhoneticsChinese"},
                                           {"English", "strPhoneticsEnglish"},
                                           {"French", "strPhoneticsFrench"},
                                           {"German", "strPhoneticsGerman"},
                                           {"Japanese", "strPhoneticsJapanese"}};

/// What a language is called in the user's own; as it stands when that is not known.
QString NameOf(std::string_view language, const shell::StringTable& strings) {
  for (const LanguageName& name : kLanguageNames) {
    if (name.language == language) return ToQt(strings.Text(name.key));
  }
  return ToQt(language);
}

}  // namespace

MWinPhonetics::MWinPhonetics(const shell::StringTable& strings, const shell::PhoneticsRequest& request,
                             Done done)
    : AnswerWindow(strings, "titlePhonetics", std::move(done)),
      m_word(new QLineEdit(ToQt(request.word))),
      m_language(new QComboBox),
      m_view(new PhoneticView(strings, request.hosts)),
      m_search(request.find) {
  AddControls(strings, request);
  SetOkText("strInsert");
  // "Insert" may have to wait for the search.
  disconnect(&buttons(), &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(&buttons(), &QDialogButtonBox::accepted, this, [this] { Insert(); });
  connect(m_word, &QLineEdit::textChanged, this, [this] { WordChanged(); });
  connect(m_language, &QComboBox::currentIndexChanged, this, [this] { WordChanged(); });
  connect(&m_search, &PhoneticSearch::Changed, this, [this] { SearchChanged(); });
  connect(m_view, &PhoneticView::StopPressed, this, [this] {
    m_search.Stop();
    m_word->setFocus();
  });
  AssignMnemonics(*this, {});
  m_word->setFocus();
  m_word->selectAll();
  if (Word().isShort()) m_search.Now(Word());
}

void MWinPhonetics::AddControls(const shell::StringTable& strings, const shell::PhoneticsRequest& request) {
  auto* search = new QPushButton(Text("strPhoneticsSearch"));
  search->setAutoDefault(false);
  connect(search, &QPushButton::clicked, this, [this] { SearchNow(); });
  for (const std::string_view language : tools::PhoneticLanguages())
    m_language->addItem(NameOf(language, strings), ToQt(language));
  m_language->setCurrentIndex(m_language->findData(ToQt(request.language)));
  auto* row = new QHBoxLayout;
  row->addWidget(m_word, 1);
  row->addWidget(search);
  auto* form = new QFormLayout;
  form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  form->addRow(Text("strPhoneticsWord"), row);
  form->addRow(Text("strPhoneticsLanguage"), m_language);
  qobject_cast<QLabel*>(form->labelForField(row))->setBuddy(m_word);
  m_word->setAccessibleName(WithoutColon(Text("strPhoneticsWord")));
  m_language->setAccessibleName(WithoutColon(Text("strPhoneticsLanguage")));
  m_view->setMinimumWidth(fontMetrics().averageCharWidth() * kWidthInCharacters);
  content().addLayout(form);
  content().addWidget(m_view, 1);
}

PhoneticWord MWinPhonetics::Word() const {
  return {FromQt(m_language->currentData().toString()), FromQt(m_word->text().trimmed())};
}

void MWinPhonetics::WordChanged() {
  ClearProblem();
  m_insertsWhenFound = false;
  m_search.Later(Word());
}

void MWinPhonetics::SearchNow() {
  ClearProblem();
  m_search.Now(Word());
}

void MWinPhonetics::Insert() {
  ClearProblem();
  const PhoneticWord word = Word();
  if (word.word.empty()) return;
  if (word.language.empty()) {
    return ShowProblem(Refuse(m_language, "errPhoneticsLanguage").error);
  }
  m_chosenLanguage = word.language;
  const tools::PhoneticAnswer* answer = m_search.AnswerFor(word);
  if (answer != nullptr && !answer->phonetic.empty()) return FinishInsert(*answer);
  m_insertsWhenFound = true;
  m_search.Now(word);
}

void MWinPhonetics::SearchChanged() {
  switch (m_search.state()) {
    case SearchState::Idle:
    case SearchState::Running:
      return m_view->ShowNothing();
    case SearchState::Slow:
      return m_view->ShowBusy();
    case SearchState::Stopped:
      m_insertsWhenFound = false;
      return m_view->ShowStopped();
    case SearchState::Answered:
      break;
  }
  const tools::PhoneticAnswer* answer = m_search.AnswerFor(Word());
  if (answer == nullptr) return;
  m_view->ShowAnswer(*answer);
  if (m_insertsWhenFound) FinishInsert(*answer);
}

void MWinPhonetics::FinishInsert(const tools::PhoneticAnswer& answer) {
  m_insertsWhenFound = false;
  if (!answer.phonetic.empty()) return FinishWith({m_chosenLanguage, answer.phonetic});
  m_hasFailed = true;
  m_view->LeaveOutSummary();
  ShowProblem(Refuse(m_word, "errPhonetics").error);
}

Result<shell::PhoneticChoice, Problem> MWinPhonetics::Read() {
  const PhoneticWord word = Word();
  const tools::PhoneticAnswer* answer = m_search.AnswerFor(word);
  if (answer == nullptr || answer->phonetic.empty()) return Refuse(m_word, "errPhonetics");
  return shell::PhoneticChoice{word.language, answer->phonetic};
}

void MWinPhonetics::reject() {
  if (m_hasFailed) return FinishWith({m_chosenLanguage, {}});
  AnswerWindow::reject();
}

void MWinPhonetics::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && m_search.isRunning()) return m_search.Stop();
  AnswerWindow::keyPressEvent(event);
}

}  // namespace quill::ui
