#include "ui/windows/templates/win_templates.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <algorithm>

#include "files/templates/template_excerpt.h"
#include "files/templates/template_folder.h"
#include "ui/kit/filter_list.h"
#include "ui/kit/labelled_part.h"
#include "ui/kit/list_icon.h"
#include "ui/kit/page_mnemonics.h"
#include "ui/kit/page_preview.h"
#include "ui/kit/qt_text.h"
#include "ui/kit/remove_key.h"
#include "ui/windows/notebooks/notebook_delegate.h"

namespace quill::ui {

using Kind = shell::TemplateWish::Kind;

MWinTemplates::MWinTemplates(const shell::StringTable& strings, const shell::TemplatesRequest& request)
    : ModalWindow(strings, "titleTemplates"),
      m_folder(request.folder),
      m_fill(request.fill),
      m_rows(ListIcon("Template")),
      m_tableViewForm(new FilterList(m_rows, new NotebookDelegate, FilterList::Click::Double,
                                     {Text("strTemplatesFilter"), Text("titleTemplates"),
                                      Text("strTemplatesNone"), Text("strTemplatesNotFound")})),
      m_preview(new PagePreview),
      m_note(new QLabel(Text("strTablePreviewBeginning"))) {
  setObjectName(QStringLiteral("templates"));
  AddButtons();
  Lay();
  m_tableViewForm->view().installEventFilter(this);
  m_tableViewForm->focusProxy()->installEventFilter(this);
  connect(m_tableViewForm, &FilterList::Chosen, this, &QDialog::accept);
  connect(m_tableViewForm, &FilterList::CurrentChanged, this, &MWinTemplates::RowChanged);
  m_tableViewForm->setFocus();
  resize(fontMetrics().averageCharWidth() * 112, fontMetrics().lineSpacing() * 30);
}

void MWinTemplates::Serve(Done done) {
  m_done = std::move(done);
  LoadArrayTemplates();
  const auto waiting = std::exchange(m_waiting, std::nullopt);
  // A second click on Delete means what is gone by now.
  const bool isGone = waiting && !waiting->name.empty() &&
                      std::ranges::find(m_ArrayTemplates, waiting->name) == m_ArrayTemplates.end();
  if (waiting && !isGone) Give(*waiting);
}

void MWinTemplates::Give(std::optional<shell::TemplateWish> wish) {
  if (const Done done = std::exchange(m_done, nullptr)) return done(std::move(wish));
  m_waiting = std::move(wish);
}

void MWinTemplates::Lay() {
  m_preview->setObjectName(QStringLiteral("preview"));
  m_preview->setMinimumWidth(fontMetrics().averageCharWidth() * 24);
  m_note->setForegroundRole(QPalette::PlaceholderText);
  // Its room stays when it goes: the preview would jump from row to row.
  QSizePolicy policy = m_note->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  m_note->setSizePolicy(policy);
  auto* grid = new QGridLayout;
  grid->addWidget(new LabelledPart(Text("titleTemplates"), m_tableViewForm), 0, 0);
  grid->addWidget(new LabelledPart(Text("strTablePreview"), m_preview), 0, 1);
  grid->addWidget(m_note, 1, 1);
  grid->setRowStretch(0, 1);
  grid->setColumnStretch(0, 2);
  grid->setColumnStretch(1, 3);
  grid->setHorizontalSpacing(fontMetrics().averageCharWidth() * 2);
  content().addLayout(grid, 1);
  AssignMnemonics(*this, {});
}

void MWinTemplates::AddButtons() {
  SetOkText("strInsert");
  const auto add = [this](std::string_view key, const char* name, Kind kind) {
    QPushButton& button = AddButton(key);
    button.setObjectName(QLatin1String(name));
    button.setAutoDefault(false);
    connect(&button, &QPushButton::clicked, this, [this, kind] { Wish(kind); });
    return &button;
  };
  m_delete = add("strTemplateDelete", "delete", Kind::Delete);
  add("strTemplatesImport", "import", Kind::Import);
  m_export = add("strTemplatesExport", "export", Kind::Export);
}

void MWinTemplates::LoadArrayTemplates() {
  ClearProblem();
  const std::string before = Current() != nullptr ? *Current() : std::string();
  const int place = std::max(0, m_tableViewForm->Current());
  Result<std::vector<std::string>> names = files::TemplateNames(m_folder);
  if (!names.ok()) ShowProblem({names.error()});
  m_ArrayTemplates = std::move(names).ValueOr({});
  std::vector<NamedRows::Row> rows;
  rows.reserve(m_ArrayTemplates.size());
  for (const std::string& name : m_ArrayTemplates) rows.push_back({ToQt(name), {}});
  m_rows.SetRows(std::move(rows));
  // An empty list goes; the keyboard must not fall to whatever comes next.
  if (m_ArrayTemplates.empty()) m_tableViewForm->setFocus();
  const auto same = std::ranges::find(m_ArrayTemplates, before);
  const auto last = static_cast<int>(m_ArrayTemplates.size()) - 1;
  const int current = same != m_ArrayTemplates.end() ? static_cast<int>(same - m_ArrayTemplates.begin())
                                                     : std::min(place, last);
  m_tableViewForm->Refresh(std::max(0, current));
}

const std::string* MWinTemplates::Current() const {
  const int row = m_tableViewForm->Current();
  const bool isThere = row >= 0 && static_cast<std::size_t>(row) < m_ArrayTemplates.size();
  return isThere ? &m_ArrayTemplates[static_cast<std::size_t>(row)] : nullptr;
}

void MWinTemplates::RowChanged() {
  okButton().setEnabled(Current() != nullptr);
  m_delete->setEnabled(Current() != nullptr);
  m_export->setEnabled(!m_ArrayTemplates.empty());
  ShowPreview();
}

void MWinTemplates::ShowPreview() {
  using Read = Result<files::TemplateExcerpt>;
  if (Current() == nullptr) {
    m_reading.Cancel();
    m_note->hide();
    return m_preview->clear();
  }
  m_reading.Run(
      [folder = m_folder, name = *Current(), fill = m_fill](const LatestJob::IsCancelled&) -> Read {
        const Result<std::string> html = files::ReadTemplate(folder, name);
        if (!html.ok()) return Failure{html.error()};
        files::TemplateExcerpt excerpt = files::ExcerptOfTemplate(*html);
        excerpt.html = fill(excerpt.html);
        return excerpt;
      },
      [this](const Read& read) {
        m_note->setVisible(read.ok() && read->isPart);
        if (read.ok()) return m_preview->ShowHtml(read->html);
        m_preview->setPlainText(ToQt(read.error()));
      });
}

bool MWinTemplates::TakeAnswer() {
  if (Current() == nullptr || m_done == nullptr) return false;
  m_chosen = *Current();
  return true;
}

void MWinTemplates::Deliver() {
  if (!m_chosen) return Give(std::nullopt);
  Give(shell::TemplateWish{Kind::Insert, *std::exchange(m_chosen, std::nullopt)});
}

void MWinTemplates::Wish(Kind kind) {
  const bool isAboutRow = kind == Kind::Delete || kind == Kind::AskAndDelete;
  if (isAboutRow && Current() == nullptr) return;
  Give(shell::TemplateWish{kind, isAboutRow ? *Current() : std::string()});
}

bool MWinTemplates::eventFilter(QObject* watched, QEvent* event) {
  if (IsRemoveKey(watched, *event)) return Wish(Kind::AskAndDelete), true;
  return ModalWindow::eventFilter(watched, event);
}

void MWinTemplates::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Cancel) && m_tableViewForm->ClearFilter()) return;
  ModalWindow::keyPressEvent(event);
}

}  // namespace quill::ui
