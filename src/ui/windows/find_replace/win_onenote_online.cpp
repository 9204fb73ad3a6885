#include "ui/windows/find_replace/win_onenote_online.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "online/page_scanner.h"
#include "ui/kit/alert_box.h"
#include "ui/kit/on_gui.h"
#include "ui/kit/page_mnemonics.h"
#include "ui/kit/qt_text.h"
#include "ui/windows/find_replace/change_list.h"
#include "ui/windows/find_replace/find_fields.h"

namespace quill::ui {
namespace {

using online::EditorWish;

constexpr const char* kNothingChanged = "No changed!";

}  // namespace

MWinOneNoteOnline::MWinOneNoteOnline(const shell::StringTable& strings, std::unique_ptr<FindReplaceView> view,
                                     const online::FindReplaceRequest& request)
    : ToolWindow(strings, "titleFindReplace"),
      m_texts(strings),
      m_webViewWin(std::move(view)),
      m_seat(request.seat),
      m_fields(new FindFields(strings)),
      m_changes(new ChangeList(strings)),
      m_status(new QLabel),
      m_progress(new QProgressBar) {
  if (!request.pageTitle.empty())
    setWindowTitle(Format("titleFindReplaceIn", {request.pageTitle})
                       .replace(QLatin1String("[*]"), QLatin1String("[*][*]")));
  Lay();
  ListenToFields();
  AddKeys();
  AssignMnemonics(*this, {});
  m_webViewWin->OnLost([this] { OnLost(); });
  m_seat->talk().OnAnswer([alive = QPointer(this)](const online::EditorAnswer& answer) {
    OnGui([alive, answer] {
      if (!alive.isNull()) alive->OnAnswer(answer);
    });
  });
  m_fields->EditFind();
  resize(std::max(820, fontMetrics().averageCharWidth() * 100),
         std::max(680, fontMetrics().lineSpacing() * 40));
  ShowPage(request.pageHtml);
}

MWinOneNoteOnline::~MWinOneNoteOnline() = default;

void MWinOneNoteOnline::Lay() {
  auto* parts = new QSplitter(Qt::Vertical);
  parts->setChildrenCollapsible(false);
  parts->addWidget(&m_webViewWin->Widget());
  parts->addWidget(m_changes);
  parts->setStretchFactor(0, 3);
  parts->setStretchFactor(1, 1);
  m_webViewWin->Widget().setMinimumHeight(fontMetrics().lineSpacing() * 6);
  m_status->setObjectName(QStringLiteral("status"));
  m_status->setTextFormat(Qt::PlainText);
  m_progress->setRange(0, 0);
  m_progress->setTextVisible(false);
  m_progress->setMaximumWidth(fontMetrics().averageCharWidth() * 20);
  m_progress->hide();
  auto* row = new QHBoxLayout;
  row->addWidget(m_status);
  row->addWidget(m_progress);
  row->addWidget(NewButtons(), 1);
  auto* column = new QVBoxLayout(this);
  column->addWidget(m_fields);
  column->addWidget(parts, 1);
  column->addLayout(row);
}

QDialogButtonBox* MWinOneNoteOnline::NewButtons() {
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Save | QDialogButtonBox::Close);
  m_save = buttons->button(QDialogButtonBox::Save);
  m_save->setText(Text("strFindReplaceSave"));
  QPushButton* close = buttons->button(QDialogButtonBox::Close);
  close->setText(Text("strClose"));
  m_undo = buttons->addButton(Text("strFindReplaceUndo"), QDialogButtonBox::ActionRole);
  for (QPushButton* button : {m_save, m_undo, close}) button->setAutoDefault(false);
  connect(m_save, &QPushButton::clicked, this, &MWinOneNoteOnline::Save);
  connect(m_undo, &QPushButton::clicked, this, &MWinOneNoteOnline::Undo);
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
  return buttons;
}

void MWinOneNoteOnline::ListenToFields() {
  connect(m_fields, &FindFields::SearchChanged, this, &MWinOneNoteOnline::Mark);
  connect(m_fields, &FindFields::Find, this, &MWinOneNoteOnline::Find);
  connect(m_fields, &FindFields::Replace, this, &MWinOneNoteOnline::Replace);
  connect(m_fields, &FindFields::ReplaceAll, this, &MWinOneNoteOnline::ReplaceAll);
  connect(m_fields, &FindFields::GoToHighlightPosition, this,
          [this] { m_webViewWin->GoToHighlightPosition(); });
  connect(m_changes, &ChangeList::Chosen, this, [this](int number) { m_webViewWin->ShowChange(number); });
  connect(m_changes, &ChangeList::JsonWanted, this, &MWinOneNoteOnline::RefreshJson);
}

void MWinOneNoteOnline::AddKeys() {
  const auto add = [this](const QKeySequence& keys, auto work) {
    connect(new QShortcut(keys, this), &QShortcut::activated, this, work);
  };
  add(QKeySequence(QKeySequence::Save), [this] { m_save->click(); });
  // Not left to the page, which has the keyboard now and then.
  add(QKeySequence(Qt::Key_Escape), [this] { close(); });
}

void MWinOneNoteOnline::ShowPage(const std::string& pageHtml) {
  const bool isReadable = online::CheckPageHtml(pageHtml).ok();
  m_pageHtmlContent = isReadable ? pageHtml : std::string();
  m_state = {};
  m_isListing = m_listsAgain = false;
  m_fields->ShowState({});
  m_changes->SetChanges({});
  m_changes->SetJson({});
  UpdateControls();
  if (!isReadable && !pageHtml.empty()) return Tell(Text("errFindReplaceNotReadable"));
  m_webViewWin->Show(ToQt(m_pageHtmlContent), [this](const PageState& state) { OnState(state); });
  if (!m_fields->Search().text.isEmpty()) Mark();
}

void MWinOneNoteOnline::OnState(const PageState& state) {
  m_state = state;
  m_fields->ShowState(state);
}

/// Everything in the page's process is gone; the page is not.
void MWinOneNoteOnline::OnLost() {
  const bool hadChanges = m_state.changeCount > 0;
  if (m_work == Work::Collecting) End({});
  ShowPage(m_pageHtmlContent);
  Tell(Text(hadChanges ? "errFindReplaceLostChanges" : "errFindReplaceLost"));
}

void MWinOneNoteOnline::Mark() {
  m_webViewWin->Mark(m_fields->Search(), [this](const PageState& state) { OnState(state); });
}

void MWinOneNoteOnline::Find(SearchDirection direction) {
  if (m_fields->Search().text.isEmpty()) return;
  m_webViewWin->Find(m_fields->Search(), direction, [this](const PageState& state) { TellEnd(state); });
}

void MWinOneNoteOnline::Replace() {
  if (m_fields->Search().text.isEmpty()) return;
  m_webViewWin->Replace(m_fields->Search(), m_fields->Replacement(), [this](const PageState& state) {
    TellEnd(state);
    RefreshChanges();
  });
}

void MWinOneNoteOnline::ReplaceAll() {
  if (m_fields->Search().text.isEmpty()) return;
  m_webViewWin->ReplaceAll(m_fields->Search(), m_fields->Replacement(), [this](const PageState& state) {
    const int count = state.isFound ? m_state.matchCount : 0;
    OnState(state);
    m_status->setText(Format("strFindReplaceReplaced", {std::to_string(count)}));
    RefreshChanges();
  });
}

void MWinOneNoteOnline::TellEnd(const PageState& state) {
  OnState(state);
  m_status->clear();
  if (!state.isFound) Tell(Text("msgEndFind"));
}

/// Fast clicks are answered with one list.
void MWinOneNoteOnline::RefreshChanges() {
  m_listsAgain = m_isListing;
  if (std::exchange(m_isListing, true)) return;
  m_webViewWin->Changes([this](const std::vector<PageChange>& changes) {
    m_isListing = false;
    m_changes->SetChanges(changes);
    if (std::exchange(m_listsAgain, false)) RefreshChanges();
  });
  if (m_changes->ShowsJson()) RefreshJson();
}

void MWinOneNoteOnline::RefreshJson() {
  m_webViewWin->GetJson([this](const QString& json) { m_changes->SetJson(json); });
}

void MWinOneNoteOnline::Save() {
  // From here on nothing is replaced any more: it would not be in what is sent.
  Begin(Work::Collecting, "strFindReplaceSaving");
  m_webViewWin->GetJson([this](const QString& jsonResult) {
    if (!jsonResult.isEmpty()) return Wish({EditorWish::Kind::Save, FromQt(jsonResult)});
    End({});
    Tell(QString::fromLatin1(kNothingChanged));
  });
}

void MWinOneNoteOnline::Undo() {
  if (m_state.changeCount == 0) return Wish({EditorWish::Kind::Undo, {}});
  const auto answered = [alive = QPointer(this)](bool isSure) {
    if (isSure && !alive.isNull()) alive->Wish({EditorWish::Kind::Undo, {}});
  };
  ShowQuestion(m_texts, Text("askFindReplaceUndo"), answered, this);
}

void MWinOneNoteOnline::Wish(EditorWish wish) {
  const bool isSave = wish.kind == EditorWish::Kind::Save;
  Begin(isSave ? Work::Saving : Work::Undoing, isSave ? "strFindReplaceSaving" : "strFindReplaceUndoing");
  m_seat->talk().Wish(std::move(wish));
}

void MWinOneNoteOnline::OnAnswer(const online::EditorAnswer& answer) {
  const char* done = m_work == Work::Saving ? "strFindReplaceSaved" : "strFindReplaceUndone";
  m_canUndo = answer.canUndo;
  if (answer.isDone) ShowPage(answer.pageHtml);
  End(answer.isDone ? done : "");
  // Without the new ids nothing more could be saved.
  if (answer.isDone && answer.pageHtml.empty()) Tell(Text("errFindReplaceNotReadAgain"));
  if (!answer.isDone && !answer.problem.empty()) Tell(ToQt(answer.problem));
}

void MWinOneNoteOnline::UpdateControls() {
  const bool isBusy = m_work != Work::None;
  const bool canEdit = !isBusy && !m_pageHtmlContent.empty();
  m_fields->setEnabled(canEdit);
  m_changes->setEnabled(!isBusy);
  m_save->setEnabled(canEdit);
  m_undo->setEnabled(!isBusy && m_canUndo);
  m_progress->setVisible(isBusy);
}

void MWinOneNoteOnline::Begin(Work work, std::string_view statusKey) {
  if (m_work == Work::None) m_focusBefore = focusWidget();
  m_work = work;
  m_status->setText(Text(statusKey));
  UpdateControls();
}

/// The keyboard goes back to where it was.
void MWinOneNoteOnline::End(std::string_view statusKey) {
  m_work = Work::None;
  m_status->setText(statusKey.empty() ? QString() : Text(statusKey));
  UpdateControls();
  if (m_focusBefore && m_focusBefore->isEnabled()) m_focusBefore->setFocus();
}

/// Later: the window may not be on the screen yet.
void MWinOneNoteOnline::Tell(const QString& text) {
  QTimer::singleShot(0, this, [this, text] { ShowAlert(m_texts, text, {}, this); });
}

/// Return belongs to the fields and the list. The row of buttons makes Save the default one when it is shown.
void MWinOneNoteOnline::showEvent(QShowEvent* event) {
  ToolWindow::showEvent(event);
  m_save->setDefault(false);
}

void MWinOneNoteOnline::reject() {
  if (m_mayClose || m_state.changeCount == 0) return ToolWindow::reject();
  if (std::exchange(m_isAsking, true)) return;
  const auto answered = [alive = QPointer(this)](bool isSure) {
    if (alive.isNull()) return;
    alive->m_isAsking = false;
    alive->m_mayClose = isSure;
    if (isSure) alive->close();
  };
  ShowQuestion(m_texts, Text("askFindReplaceClose"), answered, this);
}

}  // namespace quill::ui
