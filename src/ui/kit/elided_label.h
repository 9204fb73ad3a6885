#pragma once
#include <QLabel>
#include <QString>

namespace quill::ui {

/// One line of plain text that never makes its window wider: what does not fit is left out in the middle, so
/// that the beginning of a path and its file name stay. The whole text is in the tool tip and in what a
/// screen reader says.
class ElidedLabel : public QLabel {
  Q_OBJECT
 public:
  using QLabel::QLabel;

  void SetText(const QString& text);

  QSize minimumSizeHint() const override;
  QSize sizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Elide();

  QString m_whole;
};

}  // namespace quill::ui
