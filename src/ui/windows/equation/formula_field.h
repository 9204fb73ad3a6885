#pragma once
#include <QPlainTextEdit>
#include <string>
#include <string_view>

#include "tools/equation_palette.h"

namespace quill::ui {

/// The field for LaTeX: a fixed font, from left to right in every language. Tab goes to the next placeholder
/// of a construct as long as there is one behind the caret; then it leaves the field, as Shift+Tab always
/// does. Everything that changes the text can be undone. GUI thread.
class FormulaField final : public QPlainTextEdit {
  Q_OBJECT
 public:
  FormulaField();

  std::string Text() const;

  /// The formula between the text's delimiters; nothing when there is none but blanks.
  std::string Formula() const;

  /// Whether the text is a formula that only lacks its delimiters.
  bool LacksDelimiters() const;

  /// Replaces the text, an empty one by a pair of delimiters, and puts the caret where the formula goes on.
  void Begin(std::string_view text);

  /// Writes a construct in place of what is selected.
  void Insert(const tools::EquationConstruct& construct);

  bool HasPlaceholder() const;

 protected:
  bool focusNextPrevChild(bool next) override;

 private:
  void ReplaceAll(const QString& text, qsizetype caret);
  bool SelectNextPlaceholder();
};

}  // namespace quill::ui
