#pragma once
#include <QWidget>
#include <vector>

#include "shell/string_table.h"
#include "ui/find_replace_view.h"

class QCheckBox;
class QLabel;
class QStackedWidget;
class QTreeWidget;

namespace quill::ui {

class PlainTextView;

/// What will be saved: the changed texts, or exactly what is sent for them. GUI thread.
class ChangeList final : public QWidget {
  Q_OBJECT
 public:
  explicit ChangeList(const shell::StringTable& strings);

  void SetChanges(const std::vector<PageChange>& changes);

  bool ShowsJson() const;
  void SetJson(const QString& json);

 signals:
  /// The user looks at one of the changes.
  void Chosen(int number);
  /// What is sent is to be shown.
  void JsonWanted();

 private:
  QWidget* NewTexts();
  QString Text(const char* key) const;
  QString KindText(const QString& kind) const;

  const shell::StringTable& m_strings;
  QLabel* m_title;
  QCheckBox* m_asJson;
  QTreeWidget* m_texts;
  PlainTextView* m_json;
  QStackedWidget* m_stack;
};

}  // namespace quill::ui
