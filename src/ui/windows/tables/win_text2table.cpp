#include "ui/windows/tables/win_text2table.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QLocale>
#include <QVBoxLayout>

#include "content/unicode_text.h"
#include "ui/kit/labelled_part.h"
#include "ui/kit/page_mnemonics.h"
#include "ui/kit/page_preview.h"
#include "ui/kit/qt_text.h"
#include "ui/kit/wrapped_label.h"
#include "ui/windows/tables/separator_choice.h"
#include "ui/windows/tables/table_excerpt.h"

namespace quill::ui {
namespace {

/// As users read it, with separators between the thousands.
std::string ReadableNumber(std::int64_t number) {
  return FromQt(QLocale().toString(qlonglong{number}));
}

/// Puts a number into a field and leaves the cursor alone when it is there already.
void SetNumber(QLineEdit& field, std::int64_t number) {
  const QString text = QString::number(number);
  if (field.text() != text) field.setText(text);
}

}  // namespace

MWinText2Table::MWinText2Table(const shell::StringTable& strings, const shell::Text2TableRequest& request,
                               Done done)
    : AnswerWindow(strings, "titleText2Table", std::move(done)),
      m_text(request.text),
      m_choice(new SeparatorChoice(Text("strText2TableSeparate"),
                                   {Text("strSeparatorParagraphs"), Text("strSeparatorTabs"),
                                    Text("strSeparatorCommas"), Text("strSeparatorOther")},
                                   Text("strSeparatorOwn"))),
      m_columns(new QLineEdit),
      m_rows(new QLineEdit),
      m_hint(NewWrappedLabel(QString())),
      m_preview(new PagePreview),
      m_size(NewWrappedLabel(QString())) {
  auto* page = new QWidget;
  auto* row = new QHBoxLayout(page);
  row->setContentsMargins({});
  row->addWidget(NewChoicePart());
  row->addWidget(NewPreviewPart(), 1);
  content().addWidget(page, 1);
  AssignMnemonics(*page, {});
  SetOkText("strInsert");
  const shell::TextTableChoice& remembered = request.remembered;
  m_choice->Choose(static_cast<std::int64_t>(remembered.mode), remembered.separator);
  m_choice->FocusButtons();
  Recompute(tools::EditedField::Another);
  connect(m_choice, &SeparatorChoice::Changed, this, [this] { Recompute(tools::EditedField::Another); });
  connect(m_columns, &QLineEdit::textEdited, this, [this] { Recompute(tools::EditedField::Columns); });
  resize(fontMetrics().averageCharWidth() * 100, fontMetrics().lineSpacing() * 24);
}

Result<shell::TextTableChoice, Problem> MWinText2Table::Read() {
  return Choice();
}

shell::TextTableChoice MWinText2Table::Choice() const {
  return {static_cast<tools::TextTableMode>(m_choice->mode()), m_choice->separator(),
          FromQt(m_columns->text()), FromQt(m_rows->text())};
}

QWidget* MWinText2Table::NewChoicePart() {
  auto* part = new QWidget;
  auto* column = new QVBoxLayout(part);
  column->setContentsMargins({});
  column->addWidget(m_choice);
  auto* sizes = new QFormLayout;
  sizes->addRow(Text("strText2TableColumns"), m_columns);
  sizes->addRow(Text("strText2TableRows"), m_rows);
  column->addLayout(sizes);
  column->addWidget(m_hint);
  column->addStretch(1);
  m_columns->setObjectName(QStringLiteral("columns"));
  m_rows->setObjectName(QStringLiteral("rows"));
  m_rows->setEnabled(false);  // always follows from the rest
  return part;
}

QWidget* MWinText2Table::NewPreviewPart() {
  auto* part = new LabelledPart(Text("strTablePreview"), m_preview);
  part->column().addWidget(m_size);
  m_size->setObjectName(QStringLiteral("size"));
  return part;
}

void MWinText2Table::Recompute(tools::EditedField edited) {
  const shell::TextTableChoice choice = Choice();
  const tools::TableSizeFields fields =
      tools::GetColumnsRows(m_text, {choice.mode, choice.separator}, choice.columns, edited);
  if (fields.columns) SetNumber(*m_columns, *fields.columns);
  SetNumber(*m_rows, fields.rows);
  const bool byParagraphs = choice.mode == tools::TextTableMode::Paragraphs;
  m_columns->setEnabled(byParagraphs);
  m_hint->setText(Text(byParagraphs ? "strText2TableByParagraphs" : "strText2TableBySeparator"));
  ShowTable();
}

void MWinText2Table::ShowTable() {
  const shell::TextTableChoice choice = Choice();
  const TableExcerpt excerpt =
      ExcerptOfTable(m_text, {choice.mode, choice.separator}, choice.columns, choice.rows);
  m_preview->ShowHtml(excerpt.html);
  const auto number = [](std::string_view field) { return content::LeadingInteger(field); };
  QString size =
      Format("strTableSize", {ReadableNumber(number(choice.rows)), ReadableNumber(number(choice.columns))});
  if (excerpt.isPart) size += u' ' + Text("strTablePreviewBeginning");
  m_size->setText(size);
  if (choice.mode != tools::TextTableMode::Paragraphs) return Warn(QString());
  if (number(choice.columns) <= 0 || number(choice.rows) <= 0) return Warn(Text("strTableNoCells"));
  if (!tools::ExceedsMostCells(choice.columns, choice.rows)) return Warn(QString());
  Warn(Format("strTableClamped", {ReadableNumber(tools::kMostTableCells)}));
}

void MWinText2Table::Warn(const QString& warning) {
  if (warning == m_warning) return;
  m_warning = warning;
  if (warning.isEmpty()) return ClearProblem();
  ShowProblem({FromQt(warning), nullptr});
}

}  // namespace quill::ui
