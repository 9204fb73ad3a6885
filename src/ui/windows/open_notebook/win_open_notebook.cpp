#include "ui/windows/open_notebook/win_open_notebook.h"

#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "online/client_link.h"
#include "ui/kit/page_mnemonics.h"
#include "ui/kit/qt_text.h"
#include "ui/kit/wrapped_label.h"

namespace quill::ui {

MWinOpenNotebookByLink::MWinOpenNotebookByLink(const shell::StringTable& strings,
                                               const shell::OpenNotebookRequest&, Done done)
    : AnswerWindow(strings, "titleOpenNotebook", std::move(done)), m_notebookLinks(new QLineEdit) {
  constexpr int kWidthInCharacters = 72;
  auto* label = new QLabel(Text("strOpenNotebookLink"));
  label->setBuddy(m_notebookLinks);
  m_notebookLinks->setObjectName(QStringLiteral("notebookLinks"));
  m_notebookLinks->setAccessibleName(WithoutColon(label->text()));
  m_notebookLinks->setMinimumWidth(fontMetrics().averageCharWidth() * kWidthInCharacters);
  // A link is read from left to right in every language.
  m_notebookLinks->setLayoutDirection(Qt::LeftToRight);
  m_notebookLinks->setPlaceholderText(QStringLiteral("onenote:https://…"));
  content().addWidget(label);
  content().addWidget(m_notebookLinks);
  content().addWidget(NewWrappedLabel(Text("strOpenNotebookHelp")));
  content().addStretch(1);
  SetOkText("strOpenNotebookOpen");
  AssignMnemonics(*this, {});
}

Result<std::string, Problem> MWinOpenNotebookByLink::Read() {
  const std::string text = FromQt(m_notebookLinks->text());
  std::string link = online::IsClientLink(text) ? online::NormalizeClientLink(text) : std::string();
  if (link.empty()) return Refuse(m_notebookLinks, "errOneNoteLinks");
  return link;
}

}  // namespace quill::ui
