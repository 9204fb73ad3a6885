#pragma once
#include <QWidget>
#include <optional>
#include <string_view>

#include "shell/string_table.h"

class QLabel;
class QPushButton;

namespace quill::ui {

/// "Looks like Python" with a button that takes it. Hidden while there is nothing to suggest.
class SuggestionLine final : public QWidget {
  Q_OBJECT
 public:
  explicit SuggestionLine(const shell::StringTable& strings);

  void Suggest(std::optional<std::string_view> name);

 signals:
  /// The user takes the suggestion.
  void Taken(const QString& name);

 private:
  const shell::StringTable& m_strings;
  QLabel* m_label;
  QPushButton* m_use;
  QString m_name;
};

}  // namespace quill::ui
