#include "ui/windows/syntax/code_preview.h"

#include <QLabel>
#include <QVBoxLayout>

#include "ui/kit/page_preview.h"
#include "ui/kit/qt_text.h"
#include "ui/kit/wrapped_label.h"
#include "ui/windows/syntax/code_excerpt.h"

namespace quill::ui {

CodePreview::CodePreview(const shell::StringTable& strings, shell::HighlightCode highlight)
    : m_strings(strings),
      m_highlight(std::move(highlight)),
      m_page(new PagePreview),
      m_note(NewWrappedLabel(QString())) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins({});
  auto* label = new QLabel(ToQt(strings.Text("strTablePreview")));
  label->setBuddy(m_page);
  m_page->setAccessibleName(label->text());
  m_page->setLayoutDirection(Qt::LeftToRight);  // code runs so in every language
  m_note->setObjectName(QStringLiteral("previewNote"));
  m_note->setAlignment(Qt::AlignLeading | Qt::AlignVCenter);
  column->addWidget(label);
  column->addWidget(m_page, 1);
  column->addWidget(m_note);
}

void CodePreview::SetNoteHeight(int height) {
  m_note->setMinimumHeight(height);
}

void CodePreview::Show(tools::HighlightRequest request) {
  CodeExcerpt excerpt = ExcerptOfCode(request.code);
  if (excerpt.code.empty()) {
    m_job.Cancel();
    return Tell(std::string(), false);
  }
  request.code = std::move(excerpt.code);
  const auto work = [highlight = m_highlight,
                     request = std::move(request)](const LatestJob::IsCancelled& isCancelled) -> Html {
    Html html = highlight(request, isCancelled);
    if (!html.ok()) return html;
    return HtmlForPreview(*html);
  };
  m_job.Run(work, [this, isPart = excerpt.isPart](const Html& html) { Tell(html, isPart); });
}

void CodePreview::Tell(const Html& html, bool isPart) {
  m_page->ShowHtml(html.ok() ? *html : std::string());
  std::string_view note = isPart ? "strTablePreviewBeginning" : "";
  if (!html.ok()) note = tools::HighlightProblemKey(html.error().problem);
  m_note->setText(note.empty() ? QString() : ToQt(m_strings.Text(note)));
}

}  // namespace quill::ui
