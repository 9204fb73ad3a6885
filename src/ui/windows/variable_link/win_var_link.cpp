#include "ui/windows/variable_link/win_var_link.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

#include "shell/onedrive_actions.h"
#include "ui/kit/page_mnemonics.h"
#include "ui/kit/qt_text.h"
#include "ui/kit/wrapped_label.h"
#include "ui/windows/variable_link/link_preview.h"

namespace quill::ui {

MWinVarLink::MWinVarLink(const shell::StringTable& strings, PanelMemory& panels,
                         const shell::VarLinkRequest& request, Done done)
    : AnswerWindow(strings, "titleVarLink", std::move(done)),
      m_texts(strings),
      m_panels(panels),
      m_roots(request.roots),
      // A copied page has line breaks where its source has them.
      m_displayText(new QLineEdit(ToQt(request.fields.text).simplified())),
      m_tfLink(new QLineEdit(ToQt(request.fields.link))),
      m_preview(new LinkPreview(strings, request.roots)) {
  m_tfLink->setLayoutDirection(Qt::LeftToRight);
  m_tfLink->setPlaceholderText(ToQt(files::kUserProfile) + QStringLiteral("/…"));
  m_tfLink->setMinimumWidth(m_tfLink->fontMetrics().averageCharWidth() * 68);
  auto* page = new QWidget;
  auto* form = new QFormLayout(page);
  form->setContentsMargins({});
  form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  form->addRow(Text("strVarLinkText"), m_displayText);
  form->addRow(Text("strVarLinkPath"), m_tfLink);
  form->addRow(QString(), NewButtons());
  auto* here = new QLabel(Text("strVarLinkHere"));
  here->setAlignment(Qt::AlignLeading | Qt::AlignTop);
  form->addRow(here, m_preview);
  content().addWidget(page);
  AddNote();
  content().addStretch(1);
  SetOkText("menuGroupInsert");
  AssignMnemonics(*this, {});
  for (const auto& [field, key] :
       {std::pair(m_displayText, "strVarLinkText"), {m_tfLink, "strVarLinkPath"}}) {
    field->setAccessibleName(WithoutColon(Text(key)));
  }
  connect(m_preview, &LinkPreview::Changed, this,
          [this] { m_tfLink->setAccessibleDescription(m_preview->words()); });
  connect(m_tfLink, &QLineEdit::textChanged, this,
          [this](const QString& link) { m_preview->Show(FromQt(link)); });
  m_preview->Show(request.fields.link);
  (m_displayText->text().isEmpty() ? m_displayText : m_tfLink)->setFocus();
}

QLayout* MWinVarLink::NewButtons() {
  auto* row = new QHBoxLayout;
  const auto add = [&](std::string_view key, platform::OpenKind kind) {
    auto* button = new QPushButton(Text(key));
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, kind] { ButtonSelectFileClick(kind); });
    row->addWidget(button);
  };
  add("strVarLinkChooseFile", platform::OpenKind::Files);
  add("strVarLinkChooseFolder", platform::OpenKind::Folders);
  row->addStretch(1);
  return row;
}

void MWinVarLink::AddNote() {
  if (m_roots.hasOneDrive) return;
  QLabel* note = NewWrappedLabel(ToQt(shell::kNoOneDriveFolder));
  note->setObjectName(QStringLiteral("note"));
  note->setForegroundRole(QPalette::PlaceholderText);
  content().addSpacing(fontMetrics().lineSpacing() / 2);
  content().addWidget(note);
}

void MWinVarLink::ButtonSelectFileClick(platform::OpenKind kind) {
  platform::OpenPanel panel;
  panel.title = FromQt(windowTitle());
  panel.message = "Choose Folder or File";
  panel.kind = kind;
  ShowOpenPanel(m_texts, m_panels, panel,
                [window = QPointer<MWinVarLink>(this)](const std::vector<std::filesystem::path>& chosen) {
                  if (!window) return;
                  window->activateWindow();
                  if (!chosen.empty()) window->TakePath(chosen.front());
                });
}

void MWinVarLink::TakePath(const std::filesystem::path& path) {
  const std::string variablePath = files::ConvertFullNameToQVarPath(path.string(), m_roots);
  m_tfLink->setText(ToQt(files::EscapeWhereMisread(variablePath)));
  if (m_displayText->text().isEmpty()) m_displayText->setText(ToQt(path.filename().string()));
}

Result<files::LinkFields, Problem> MWinVarLink::Read() {
  if (m_displayText->text().isEmpty()) return Refuse(m_displayText, "errVarLinkNoText");
  if (m_tfLink->text().isEmpty()) return Refuse(m_tfLink, "errVarLinkNoPath");
  return files::LinkFields{FromQt(m_displayText->text()), FromQt(m_tfLink->text())};
}

}  // namespace quill::ui
