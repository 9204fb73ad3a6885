#pragma once
#include <QWidget>
#include <chrono>
#include <span>
#include <string>
#include <string_view>

#include "shell/string_table.h"
#include "tools/date_pattern.h"

class QComboBox;
class QLabel;

namespace quill::ui {

/// One pattern of the format window: its field with common patterns to choose from, what it writes, and the
/// letters it is made of.
class PatternBox final : public QWidget {
  Q_OBJECT
 public:
  struct Contents {
    std::string_view labelKey;
    std::string_view helpKey;  ///< the name of the list of letters
    std::string_view present;
    std::span<const std::string_view> common;
    std::span<const tools::PatternLetter> letters;
  };

  PatternBox(const shell::StringTable& strings, const Contents& contents,
             std::chrono::system_clock::time_point moment);

  std::string Pattern() const;
  /// Where the pattern is typed.
  QWidget* field() const;
  /// Goes to the field and selects its text.
  void Begin();

 private:
  void AddCommon(std::span<const std::string_view> patterns);
  void ShowPreview();
  void DescribeField();
  QString ProblemText(const tools::PatternCheck& check) const;
  void InsertLetters(const QString& letters);

  const shell::StringTable& m_strings;
  std::chrono::system_clock::time_point m_moment;
  QComboBox* m_field;
  QLabel* m_preview;
};

}  // namespace quill::ui
