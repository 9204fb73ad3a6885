#pragma once
#include <QColor>
#include <QWidget>
#include <optional>
#include <string>
#include <string_view>

#include "shell/string_table.h"
#include "tools/syntax_highlight.h"

class QCheckBox;
class QComboBox;
class QFormLayout;

namespace quill::ui {

class ColorButton;
class SuggestionLine;

/// The fields for the language of a code and for how it is to look.
class CodeStyleFields final : public QWidget {
  Q_OBJECT
 public:
  /// A language or theme that there is not selects none; a font that is not installed is offered as well.
  CodeStyleFields(const shell::StringTable& strings, const tools::HighlightRequest& remembered);

  /// What the fields say about this code.
  tools::HighlightRequest Request(std::string code) const;

  QColor background() const;
  QString family() const;

  /// The field that a problem is about; null when it is about none of them.
  QWidget* FieldOf(tools::HighlightProblem problem) const;

  /// Offers a language, which the user may take or leave. One that is chosen already is not offered.
  void Suggest(std::optional<std::string_view> language);

 signals:
  void Changed();

 private:
  void FillForm(const shell::StringTable& strings);
  void AddChecks(QFormLayout& form, const shell::StringTable& strings);
  void SetValues(const tools::HighlightRequest& remembered);
  void ConnectFields();
  void ShowSuggestion();

  QComboBox* m_language;
  SuggestionLine* m_suggestion;
  QComboBox* m_theme;
  QComboBox* m_font;
  QComboBox* m_size;
  QCheckBox* m_lineNumbers;
  QCheckBox* m_bold;
  QCheckBox* m_frame;
  ColorButton* m_background;
  QCheckBox* m_ownRules;
  std::optional<QString> m_suggested;
};

}  // namespace quill::ui
