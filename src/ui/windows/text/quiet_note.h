#pragma once
#include <QLabel>
#include <QString>

namespace quill::ui {

/// A quiet line for what a button has just done; screen readers say it, too. It keeps its room while it is
/// empty.
class QuietNote final : public QLabel {
  Q_OBJECT
 public:
  QuietNote();

  void Tell(const QString& text);
};

}  // namespace quill::ui
