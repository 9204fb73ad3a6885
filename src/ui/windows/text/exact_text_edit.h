#pragma once
#include <QPlainTextEdit>
#include <string>
#include <string_view>

namespace quill::ui {

/// A text field that gives back exactly what it was given. An ordinary one makes every line end a line feed
/// and every no-break space a blank; here each line remembers how it ends, through typing, undo and redo.
/// New lines end as the one they were typed or pasted in.
class ExactTextEdit final : public QPlainTextEdit {
  Q_OBJECT
 public:
  /// The text cannot be undone away.
  explicit ExactTextEdit(std::string_view text);

  std::string Text() const;

  /// Another text, as one step that can be undone. False when it is the same text: nothing happens then.
  bool Replace(std::string_view text);

 protected:
  QMimeData* createMimeDataFromSelection() const override;
  void insertFromMimeData(const QMimeData* source) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QString Part(int begin, int end) const;
};

}  // namespace quill::ui
