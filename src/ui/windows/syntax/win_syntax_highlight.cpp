#include "ui/windows/syntax/win_syntax_highlight.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QPushButton>
#include <QShortcut>
#include <chrono>

#include "tools/detect_language.h"
#include "ui/kit/labelled_part.h"
#include "ui/kit/page_mnemonics.h"
#include "ui/kit/qt_text.h"
#include "ui/windows/syntax/busy_line.h"
#include "ui/windows/syntax/code_preview.h"
#include "ui/windows/syntax/code_style_fields.h"
#include "ui/windows/text/exact_text_edit.h"

namespace quill::ui {

using namespace std::chrono_literals;

MWinSyntaxHighlight::MWinSyntaxHighlight(const shell::StringTable& strings,
                                         const shell::SyntaxHighlightRequest& request, Done done)
    : AnswerWindow(strings, "titleSyntaxHighlight", std::move(done)),
      m_highlight(request.highlight),
      m_fields(new CodeStyleFields(strings, request.remembered)),
      m_code(new ExactTextEdit("")),
      m_preview(new CodePreview(strings, request.preview)),
      m_busy(new BusyLine(Text("strSyntaxBusy"))),
      m_page(NewPage()) {
  content().addWidget(m_page, 1);
  content().addWidget(m_busy);
  AssignMnemonics(*m_page, {});
  SetOkText("strInsert");
  // Insert takes the answer when it is there, not when it is pressed.
  disconnect(&buttons(), &QDialogButtonBox::accepted, this, nullptr);
  connect(&buttons(), &QDialogButtonBox::accepted, this, &MWinSyntaxHighlight::Insert);
  ConnectFields();
  ShowCodeColors();
  m_code->setFocus();
  resize(fontMetrics().averageCharWidth() * 160, fontMetrics().lineSpacing() * 32);
}

QWidget* MWinSyntaxHighlight::NewPage() {
  auto* page = new QWidget;
  auto* row = new QHBoxLayout(page);
  row->setContentsMargins({});
  row->setSpacing(fontMetrics().averageCharWidth() * 2);
  row->addWidget(m_fields, 0, Qt::AlignTop);
  row->addWidget(NewCodePart(), 1);
  row->addWidget(m_preview, 1);
  return page;
}

QWidget* MWinSyntaxHighlight::NewCodePart() {
  auto* part = new LabelledPart(Text("strSyntaxCode"), m_code);
  m_code->setObjectName(QStringLiteral("code"));
  m_code->setLineWrapMode(QPlainTextEdit::NoWrap);
  m_code->setLayoutDirection(Qt::LeftToRight);
  m_code->setMinimumWidth(fontMetrics().averageCharWidth() * 30);
  auto* paste = new QPushButton(Text("strSyntaxPaste"));
  paste->setObjectName(QStringLiteral("paste"));
  paste->setAutoDefault(false);
  connect(paste, &QPushButton::clicked, this, &MWinSyntaxHighlight::Paste);
  part->column().addWidget(paste, 0, Qt::AlignLeading);
  m_preview->SetNoteHeight(paste->sizeHint().height());
  return part;
}

void MWinSyntaxHighlight::ConnectFields() {
  m_calm.setSingleShot(true);
  m_calm.setInterval(300ms);
  connect(&m_calm, &QTimer::timeout, this, &MWinSyntaxHighlight::Settle);
  connect(m_code, &QPlainTextEdit::textChanged, this, &MWinSyntaxHighlight::FieldsChanged);
  connect(m_fields, &CodeStyleFields::Changed, this, &MWinSyntaxHighlight::FieldsChanged);
  connect(m_fields, &CodeStyleFields::Changed, this, &MWinSyntaxHighlight::ShowCodeColors);
  // Tab writes a tab; with Control it is what it is elsewhere. Qt calls a Mac's Control key "Meta".
  for (const Qt::KeyboardModifier control : {Qt::ControlModifier, Qt::MetaModifier}) {
    auto* next =
        new QShortcut(QKeySequence(control | Qt::Key_Tab), m_code, nullptr, nullptr, Qt::WidgetShortcut);
    connect(next, &QShortcut::activated, this, [this] { focusNextChild(); });
    auto* previous = new QShortcut(QKeySequence(control | Qt::ShiftModifier | Qt::Key_Backtab), m_code,
                                   nullptr, nullptr, Qt::WidgetShortcut);
    connect(previous, &QShortcut::activated, this, [this] { focusPreviousChild(); });
  }
}

void MWinSyntaxHighlight::ShowCodeColors() {
  const QColor ground = m_fields->background();
  QPalette palette = m_code->palette();
  const bool isDark = qGray(ground.rgb()) < 128;
  palette.setColor(QPalette::Base, ground);
  palette.setColor(QPalette::Text, isDark ? Qt::white : Qt::black);
  m_code->setPalette(palette);
  QFont font = m_code->font();
  font.setStyleHint(QFont::Monospace);
  font.setFamily(m_fields->family());
  m_code->setFont(font);
  m_code->setTabStopDistance(QFontMetricsF(font).horizontalAdvance(u' ') * 4);
}

void MWinSyntaxHighlight::FieldsChanged() {
  m_preview->Stop();
  m_calm.start();
}

void MWinSyntaxHighlight::Settle() {
  tools::HighlightRequest request = m_fields->Request(m_code->Text());
  m_fields->Suggest(tools::DetectLanguage(request.code));
  m_preview->Show(std::move(request));
}

void MWinSyntaxHighlight::Paste() {
  m_code->Replace(FromQt(QGuiApplication::clipboard()->text()));
  m_code->setFocus();
}

void MWinSyntaxHighlight::Insert() {
  tools::HighlightRequest request = m_fields->Request(m_code->Text());
  if (request.code.empty() || m_run.isRunning()) return;
  ClearProblem();
  BeginBusy();
  m_run.Run([highlight = m_highlight,
             request](const LatestJob::IsCancelled& isCancelled) { return highlight(request, isCancelled); },
            [this, request](Html html) { Finish(request, std::move(html)); });
}

void MWinSyntaxHighlight::Finish(const tools::HighlightRequest& request, Html html) {
  if (html.ok()) {
    m_choice = {request, std::move(*html)};
    return accept();
  }
  EndBusy();
  const tools::HighlightProblem problem = html.error().problem;
  if (tools::HighlightProblemKey(problem).empty()) return;
  m_failed = request;
  TellFailure(problem);
}

Result<shell::SyntaxChoice, Problem> MWinSyntaxHighlight::Read() {
  return m_choice;
}

void MWinSyntaxHighlight::TellFailure(tools::HighlightProblem problem) {
  QWidget* field = m_fields->FieldOf(problem);
  const QString text = Text(tools::kHighlightErrorKey) + u' ' + Text(tools::HighlightProblemKey(problem));
  ShowProblem({FromQt(text), field != nullptr ? field : m_code});
}

void MWinSyntaxHighlight::BeginBusy() {
  m_calm.stop();
  m_preview->Stop();
  m_busy->Begin();
  m_focusBefore = focusWidget();
  m_page->setEnabled(false);
  okButton().setEnabled(false);
  setFocus();  // not Cancel: Return pressed twice would end what it began
}

void MWinSyntaxHighlight::EndBusy() {
  m_busy->End();
  m_page->setEnabled(true);
  okButton().setEnabled(true);
  if (m_focusBefore) m_focusBefore->setFocus();
  m_calm.start();  // the preview, which made room for the run
}

void MWinSyntaxHighlight::reject() {
  if (m_run.isRunning()) {
    m_run.Cancel();
    return EndBusy();
  }
  if (m_failed) return FinishWith({*m_failed, {}});
  AnswerWindow::reject();
}

void MWinSyntaxHighlight::closeEvent(QCloseEvent* event) {
  m_run.Cancel();  // the window goes, whatever it is doing
  AnswerWindow::closeEvent(event);
}

}  // namespace quill::ui
