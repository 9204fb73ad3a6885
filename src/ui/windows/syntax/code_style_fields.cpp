#include "ui/windows/syntax/code_style_fields.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <QLabel>

#include "tools/syntax_highlight_tables.h"
#include "ui/kit/color_popover.h"
#include "ui/kit/qt_text.h"
#include "ui/windows/syntax/suggestion_line.h"

namespace quill::ui {
namespace {

constexpr const char* kUsualSizes[] = {"8", "9", "10", "11", "12", "14", "16", "18", "20", "24"};

template <class Rows>
QComboBox* NewNameBox(const Rows& rows) {
  auto* box = new QComboBox;
  for (const auto& row : rows) box->addItem(ToQt(row.name));
  return box;
}

QComboBox* NewFontBox(const QString& present) {
  auto* box = new QComboBox;
  for (const QString& family : QFontDatabase::families()) {
    if (!QFontDatabase::isPrivateFamily(family)) box->addItem(family);
  }
  if (!present.isEmpty() && box->findText(present, Qt::MatchExactly) < 0) box->insertItem(0, present);
  // Long names are cut off rather than making the window wider.
  box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  box->setMinimumContentsLength(20);
  return box;
}

QComboBox* NewSizeBox() {
  auto* box = new QComboBox;
  for (const char* size : kUsualSizes) box->addItem(QLatin1String(size));
  box->setEditable(true);
  box->setInsertPolicy(QComboBox::NoInsert);
  box->setCompleter(nullptr);  // a "1" is no "10" yet
  return box;
}

void Select(QComboBox& box, const std::string& text) {
  box.setCurrentIndex(box.findText(ToQt(text), Qt::MatchExactly));
}

}  // namespace

CodeStyleFields::CodeStyleFields(const shell::StringTable& strings, const tools::HighlightRequest& remembered)
    : m_language(NewNameBox(tools::SyntaxLanguages())),
      m_suggestion(new SuggestionLine(strings)),
      m_theme(NewNameBox(tools::SyntaxThemes())),
      m_font(NewFontBox(ToQt(remembered.font))),
      m_size(NewSizeBox()),
      m_lineNumbers(new QCheckBox(ToQt(strings.Text("strSyntaxLineNumbers")))),
      m_bold(new QCheckBox(ToQt(strings.Text("strSyntaxBold")))),
      m_frame(new QCheckBox(ToQt(strings.Text("strSyntaxFrame")))),
      m_background(new ColorButton(strings, ToQt(strings.Text("strSyntaxBackgroundName")))),
      m_ownRules(new QCheckBox(ToQt(strings.Text("strSyntaxOwnRules")))) {
  FillForm(strings);
  SetValues(remembered);
  ConnectFields();
}

void CodeStyleFields::FillForm(const shell::StringTable& strings) {
  auto* form = new QFormLayout(this);
  form->setContentsMargins({});
  form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
  for (QComboBox* box : {m_language, m_theme, m_font}) {
    box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  }
  // As wide as a line that tells a problem: the window does not grow when one comes.
  m_language->setMinimumWidth(fontMetrics().averageCharWidth() * 36);
  form->addRow(ToQt(strings.Text("strSyntaxLanguage")), m_language);
  form->addRow(QString(), m_ownRules);
  form->addRow(QString(), m_suggestion);
  form->addRow(ToQt(strings.Text("strSyntaxTheme")), m_theme);
  form->addRow(ToQt(strings.Text("strSyntaxFont")), m_font);
  form->addRow(ToQt(strings.Text("strSyntaxSize")), m_size);
  AddChecks(*form, strings);
  m_language->setObjectName(QStringLiteral("language"));
  m_theme->setObjectName(QStringLiteral("theme"));
  m_font->setObjectName(QStringLiteral("font"));
  m_size->setObjectName(QStringLiteral("size"));
}

void CodeStyleFields::AddChecks(QFormLayout& form, const shell::StringTable& strings) {
  for (QCheckBox* check : {m_lineNumbers, m_bold, m_frame}) form.addRow(QString(), check);
  form.addRow(ToQt(strings.Text("strSyntaxBackground")), m_background);
  const QString help = ToQt(strings.Text("strSyntaxOwnRulesHelp"));
  m_ownRules->setToolTip(help);
  m_ownRules->setAccessibleDescription(help);
}

void CodeStyleFields::SetValues(const tools::HighlightRequest& remembered) {
  Select(*m_language, remembered.language);
  Select(*m_theme, remembered.theme);
  Select(*m_font, remembered.font);
  m_size->setCurrentText(ToQt(remembered.fontSize));
  m_lineNumbers->setChecked(remembered.hasLineNumbers);
  m_bold->setChecked(remembered.frame.isBold);
  m_frame->setChecked(remembered.frame.isFramed);
  m_background->SetColor(ColorFromHex(ToQt(remembered.frame.color)).value_or(Qt::white));
  m_background->setEnabled(m_frame->isChecked());
  m_ownRules->setChecked(remembered.source == tools::SyntaxSource::Name);
}

void CodeStyleFields::ConnectFields() {
  for (const QComboBox* box : {m_language, m_theme, m_font, m_size}) {
    connect(box, &QComboBox::currentTextChanged, this, &CodeStyleFields::Changed);
  }
  for (const QCheckBox* check : {m_lineNumbers, m_bold, m_frame, m_ownRules}) {
    connect(check, &QCheckBox::toggled, this, &CodeStyleFields::Changed);
  }
  connect(m_frame, &QCheckBox::toggled, m_background, &QWidget::setEnabled);
  connect(m_background, &ColorButton::ColorChanged, this, &CodeStyleFields::Changed);
  connect(m_language, &QComboBox::currentTextChanged, this, &CodeStyleFields::ShowSuggestion);
  connect(m_suggestion, &SuggestionLine::Taken, this, [this](const QString& language) {
    m_language->setFocus();  // before the button goes: it would give the keyboard to whatever is next
    m_language->setCurrentText(language);
  });
}

tools::HighlightRequest CodeStyleFields::Request(std::string code) const {
  tools::HighlightRequest request;
  request.code = std::move(code);
  request.language = FromQt(m_language->currentText());
  request.theme = FromQt(m_theme->currentText());
  request.font = FromQt(m_font->currentText());
  request.fontSize = FromQt(m_size->currentText());
  request.hasLineNumbers = m_lineNumbers->isChecked();
  request.frame = {m_frame->isChecked(), m_bold->isChecked(), FromQt(ColorHex(m_background->color()))};
  request.source = m_ownRules->isChecked() ? tools::SyntaxSource::Name : tools::SyntaxSource::Extension;
  return request;
}

QColor CodeStyleFields::background() const {
  return m_background->color();
}

QString CodeStyleFields::family() const {
  return m_font->currentText();
}

QWidget* CodeStyleFields::FieldOf(tools::HighlightProblem problem) const {
  switch (problem) {
    case tools::HighlightProblem::UnknownLanguage:
      return m_language;
    case tools::HighlightProblem::UnknownTheme:
      return m_theme;
    case tools::HighlightProblem::BadFontSize:
      return m_size;
    default:
      return nullptr;
  }
}

void CodeStyleFields::Suggest(std::optional<std::string_view> language) {
  m_suggested.reset();
  if (language) m_suggested = ToQt(*language);
  ShowSuggestion();
}

void CodeStyleFields::ShowSuggestion() {
  const bool isNews = m_suggested && *m_suggested != m_language->currentText();
  const std::string name = FromQt(m_suggested.value_or(QString()));
  m_suggestion->Suggest(isNews ? std::optional<std::string_view>(name) : std::nullopt);
}

}  // namespace quill::ui
