#include "ui/windows/sign_in/win_login_online_onenote.h"

#include <QHBoxLayout>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "online/token_requests.h"
#include "ui/kit/elided_label.h"
#include "ui/kit/page_mnemonics.h"
#include "ui/kit/qt_text.h"
#include "ui/windows/sign_in/load_problem.h"
#include "ui/windows/sign_in/page_place.h"

namespace quill::ui {

MWinLoginOnlineOneNote::MWinLoginOnlineOneNote(const shell::StringTable& strings,
                                               std::unique_ptr<SignInView> view,
                                               const shell::SignInRequest& request, Done done)
    : AnswerWindow(strings, "titleSignIn", std::move(done)),
      m_endpoints(request.endpoints),
      m_pages(request.endpoints, request.mode),
      m_view(std::move(view)),
      m_start(m_pages.FirstAddress()),
      m_back(new QPushButton(Text("strBack"))),
      m_reload(new QPushButton(Text("strReload"))),
      m_place(new PagePlace(strings)),
      m_labelShowTitle(new ElidedLabel),
      m_progress(new QProgressBar),
      m_stack(new QStackedWidget),
      m_problem(new LoadProblem(strings)) {
  m_stack->addWidget(&m_view->Widget());
  m_stack->addWidget(m_problem);
  content().addWidget(NewHead());
  content().addWidget(m_stack, 1);
  // Return in a page that has no use for it comes to the window: no button may take it.
  buttons().setStandardButtons(QDialogButtonBox::Cancel);
  QPushButton* cancel = buttons().button(QDialogButtonBox::Cancel);
  cancel->setText(Text("strCancel"));
  for (QPushButton* button : {m_back, m_reload, cancel}) button->setAutoDefault(false);
  AssignMnemonics(*this, {});
  AddKeys();
  ListenToView();
  m_view->Widget().setFocus();
  resize(std::max(900, fontMetrics().averageCharWidth() * 80), std::max(700, fontMetrics().height() * 32));
  Begin();
}

MWinLoginOnlineOneNote::~MWinLoginOnlineOneNote() = default;

QWidget* MWinLoginOnlineOneNote::NewHead() {
  m_labelShowTitle->setObjectName(QStringLiteral("labelShowTitle"));
  m_labelShowTitle->setAlignment(BesideTheLock());
  m_labelShowTitle->setForegroundRole(QPalette::PlaceholderText);
  m_progress->setTextVisible(false);
  m_progress->setFixedHeight(std::max(3, fontMetrics().height() / 4));
  m_progress->setAccessibleName(Text("strSignInProgress"));
  QSizePolicy policy = m_progress->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  m_progress->setSizePolicy(policy);
  m_progress->hide();
  auto* head = new QWidget;
  auto* row = new QHBoxLayout;
  row->addWidget(m_back);
  row->addWidget(m_reload);
  auto* texts = new QVBoxLayout;
  texts->setSpacing(0);
  texts->addWidget(m_place);
  texts->addWidget(m_labelShowTitle);
  row->addSpacing(fontMetrics().averageCharWidth());
  row->addLayout(texts, 1);
  auto* column = new QVBoxLayout(head);
  column->setContentsMargins({});
  column->addLayout(row);
  column->addWidget(m_progress);
  return head;
}

void MWinLoginOnlineOneNote::AddKeys() {
  const auto add = [this](const QKeySequence& keys, auto work) {
    connect(new QShortcut(keys, this), &QShortcut::activated, this, work);
  };
  // Not left to the page, which may be busy for ever.
  add(QKeySequence(Qt::Key_Escape), [this] { reject(); });
  add(QKeySequence(Qt::Key_F5), [this] { Reload(); });
  add(QKeySequence(Qt::CTRL | Qt::Key_R), [this] { Reload(); });
  add(QKeySequence(Qt::ALT | Qt::Key_Left), [this] { Back(); });
  connect(m_back, &QPushButton::clicked, this, &MWinLoginOnlineOneNote::Back);
  connect(m_reload, &QPushButton::clicked, this, &MWinLoginOnlineOneNote::Reload);
  connect(m_problem, &LoadProblem::TryAgain, this, &MWinLoginOnlineOneNote::Begin);
}

void MWinLoginOnlineOneNote::ListenToView() {
  m_view->Listen({.onFinished = [this](const QByteArray& url, PageLoad load) { OnFinished(url, load); },
                  .onTitle = [this](const QString& title) { m_labelShowTitle->SetText(title); },
                  .onHost = [this](const QUrl& place) { OnHost(place); },
                  .onProgress = [this](int percent) { OnProgress(percent); },
                  .onLost = [this] { TellProblem(Text("errSignInLost"), Text("errSignInLostHint")); }});
}

void MWinLoginOnlineOneNote::Loading(const std::string& address) {
  m_start = address;
  const QUrl url = QUrl::fromEncoded(QByteArray::fromStdString(address));
  ShowPage();
  OnProgress(0);
  m_view->ShowLoading(url);
  m_view->Load(url);
}

void MWinLoginOnlineOneNote::Begin() {
  // From the beginning: a form that did not get through cannot be sent a second time.
  Loading(m_start);
}

void MWinLoginOnlineOneNote::Back() {
  if (!m_view->CanGoBack()) return;
  ShowPage();
  m_view->Back();
}

void MWinLoginOnlineOneNote::Reload() {
  if (m_stack->currentWidget() == m_problem) return Begin();
  m_view->Reload();
}

void MWinLoginOnlineOneNote::OnFinished(const QByteArray& url, PageLoad load) {
  if (isHidden() && result() != 0) return;  // answered already
  const online::SignInPages::Step step = m_pages.PageFinished(url.toStdString());
  if (step.isFinished) return FinishWith(m_pages.Result());
  m_back->setEnabled(m_view->CanGoBack());
  if (step.clearsCookies) {
    m_view->ClearCookiesAndCache([this, next = step.load] { Loading(next); });
  } else if (!step.load.empty()) {
    Loading(step.load);
  } else if (IsRefusal(url)) {
    TellProblem(Text("errSignInRefused"), Text("errSignInRefusedHint"));
  } else {
    ShowOutcome(load, QUrl::fromEncoded(url));
  }
}

void MWinLoginOnlineOneNote::OnHost(const QUrl& place) {
  m_place->Show(place);
  const QString server = ServerName(place);
  setWindowTitle(server.isEmpty() ? Text("titleSignIn") : Format("titleSignInAt", {FromQt(server)}));
}

void MWinLoginOnlineOneNote::OnProgress(int percent) {
  m_progress->setRange(0, percent > 0 ? 100 : 0);  // busy until something has come
  m_progress->setValue(percent);
  m_progress->setVisible(percent < 100);
  m_back->setEnabled(m_view->CanGoBack());
}

void MWinLoginOnlineOneNote::ShowPage() {
  m_stack->setCurrentWidget(&m_view->Widget());
  m_view->Widget().setFocus();
}

void MWinLoginOnlineOneNote::ShowOutcome(PageLoad load, const QUrl& url) {
  const std::string server = FromQt(ServerName(url));
  switch (load) {
    case PageLoad::Shown:
      return ShowPage();
    case PageLoad::Empty:
      return TellProblem(Text("errSignInEmpty"), Text("errSignInEmptyHint"));
    case PageLoad::NotReached:
      return TellProblem(Format("errSignInNotReached", {server}), Text("errSignInNotReachedHint"));
    case PageLoad::NotTrusted:
      return TellProblem(Format("errSignInNotTrusted", {server}), Text("errSignInNotTrustedHint"));
  }
}

void MWinLoginOnlineOneNote::TellProblem(const QString& problem, const QString& hint) {
  OnProgress(100);
  OnHost({});
  m_labelShowTitle->SetText({});
  m_stack->setCurrentWidget(m_problem);
  m_problem->Tell(problem, hint);
}

/// The redirect page of a sign-in that the service or its user has ended is an empty one.
bool MWinLoginOnlineOneNote::IsRefusal(const QByteArray& url) const {
  return url.startsWith(QByteArray::fromStdString(online::RedirectUri(m_endpoints)) + '?') &&
         !online::GetFieldValueFromURL(url.toStdString(), "error").empty();
}

}  // namespace quill::ui
