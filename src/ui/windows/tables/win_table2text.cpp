#include "ui/windows/tables/win_table2text.h"

#include <QHBoxLayout>
#include <QPushButton>

#include "ui/kit/labelled_part.h"
#include "ui/kit/page_mnemonics.h"
#include "ui/kit/qt_text.h"
#include "ui/kit/wrapped_label.h"
#include "ui/windows/plain_text_view.h"
#include "ui/windows/tables/separator_choice.h"

namespace quill::ui {
namespace {

/// The view is filled anew with every key: with the text of 4,000 rows of 6 cells this takes 30 to 120 ms,
/// with so many characters 7.
constexpr qsizetype kMostShown = 20'000;

}  // namespace

MWinTable2Text::MWinTable2Text(const shell::StringTable& strings, const shell::Table2TextRequest& request,
                               Done done)
    : AnswerWindow(strings, "titleTable2Text", std::move(done)),
      m_table(request.table),
      m_choice(new SeparatorChoice(
          Text("strTable2TextSeparate"),
          {Text("strSeparatorTwoParagraphs"), Text("strSeparatorParagraphs"), Text("strSeparatorTabs"),
           Text("strSeparatorCommas"), Text("strSeparatorOther")},
          Text("strSeparatorOwn"))),
      m_text(new PlainTextView(QString())),
      m_state(NewWrappedLabel(QString())) {
  auto* page = new QWidget;
  auto* row = new QHBoxLayout(page);
  row->setContentsMargins({});
  row->addWidget(m_choice, 0, Qt::AlignTop);
  row->addWidget(NewTextPart(), 1);
  content().addWidget(page, 1);
  AssignMnemonics(*page, {});
  OnlyClose();
  const shell::TableTextChoice& remembered = request.remembered;
  m_choice->Choose(static_cast<std::int64_t>(remembered.mode), remembered.separator);
  m_choice->FocusButtons();
  Recompute();
  connect(m_choice, &SeparatorChoice::Changed, this, &MWinTable2Text::Recompute);
  resize(fontMetrics().averageCharWidth() * 100, fontMetrics().lineSpacing() * 22);
}

void MWinTable2Text::reject() {
  FinishWith(Choice());
}

Result<shell::TableTextChoice, Problem> MWinTable2Text::Read() {
  return Choice();
}

shell::TableTextChoice MWinTable2Text::Choice() const {
  return {static_cast<tools::TableTextMode>(m_choice->mode()), m_choice->separator()};
}

QWidget* MWinTable2Text::NewTextPart() {
  auto* part = new LabelledPart(Text("strTable2TextResult"), m_text);
  part->column().addWidget(m_state);
  return part;
}

void MWinTable2Text::Recompute() {
  const shell::TableTextChoice choice = Choice();
  const QString text = ToQt(tools::TableToText(m_table->document_element(), choice.mode, choice.separator));
  CopyText(text);
  m_text->SetText(text, kMostShown);
  m_state->setText(Text(text.size() > kMostShown ? "strTable2TextBeginning" : "strTable2TextCopied"));
}

}  // namespace quill::ui
