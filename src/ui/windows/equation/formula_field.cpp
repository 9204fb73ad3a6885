#include "ui/windows/equation/formula_field.h"

#include <QFontDatabase>
#include <QTextBlock>
#include <QTextOption>

#include "tools/equation.h"
#include "ui/kit/qt_text.h"

namespace quill::ui {
namespace {

constexpr int kLines = 4;
constexpr QLatin1String kDelimiter("$$");

QString Placeholder() {
  return ToQt(tools::kPlaceholder);
}

}  // namespace

FormulaField::FormulaField() {
  setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  setLayoutDirection(Qt::LeftToRight);
  QTextOption option = document()->defaultTextOption();
  option.setTextDirection(Qt::LeftToRight);
  document()->setDefaultTextOption(option);
  setTabChangesFocus(true);
  const int margins = 2 * (frameWidth() + static_cast<int>(document()->documentMargin()));
  setMinimumHeight(fontMetrics().lineSpacing() * kLines + margins);
}

std::string FormulaField::Text() const {
  return FromQt(toPlainText());
}

std::string FormulaField::Formula() const {
  std::string text = Text();
  const std::string_view formula = tools::GetPlainLaTeX(text);
  return ToQt(formula).trimmed().isEmpty() ? std::string() : std::string(formula);
}

bool FormulaField::LacksDelimiters() const {
  const QString text = toPlainText().trimmed();
  return !text.isEmpty() && !text.contains(u'$') && Formula().empty();
}

void FormulaField::Begin(std::string_view text) {
  const QString given = ToQt(text).trimmed();
  if (given.isEmpty())
    return ReplaceAll(kDelimiter + QStringLiteral("  ") + kDelimiter, kDelimiter.size() + 1);
  const bool isDelimited = given.size() > 2 * kDelimiter.size() && given.endsWith(kDelimiter);
  ReplaceAll(given, given.size() - (isDelimited ? kDelimiter.size() : 0));
}

void FormulaField::ReplaceAll(const QString& text, qsizetype caret) {
  QTextCursor cursor = textCursor();
  cursor.select(QTextCursor::Document);
  cursor.insertText(text);
  cursor.setPosition(static_cast<int>(caret));
  setTextCursor(cursor);
}

void FormulaField::Insert(const tools::EquationConstruct& construct) {
  if (toPlainText().trimmed().isEmpty()) Begin({});
  QTextCursor cursor = textCursor();
  QString selection = cursor.selectedText().replace(QChar::ParagraphSeparator, u'\n');
  if (selection == Placeholder()) selection.clear();  // it is there to be filled
  const tools::PlacedConstruct placed = tools::Place(construct, FromQt(selection));
  cursor.beginEditBlock();
  cursor.insertText(ToQt(placed.before));
  const int begin = cursor.position();
  cursor.insertText(ToQt(placed.selected));
  const int end = cursor.position();
  cursor.insertText(ToQt(placed.after));
  cursor.endEditBlock();
  cursor.setPosition(begin);
  cursor.setPosition(end, QTextCursor::KeepAnchor);
  setTextCursor(cursor);
}

bool FormulaField::HasPlaceholder() const {
  return toPlainText().contains(Placeholder());
}

bool FormulaField::SelectNextPlaceholder() {
  const QTextCursor next = document()->find(Placeholder(), textCursor());
  if (next.isNull()) return false;
  setTextCursor(next);
  return true;
}

bool FormulaField::focusNextPrevChild(bool next) {
  return (next && SelectNextPlaceholder()) || QPlainTextEdit::focusNextPrevChild(next);
}

}  // namespace quill::ui
