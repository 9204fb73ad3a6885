#pragma once
#include <QWidget>

#include "tools/image_table.h"

namespace quill::ui {

/// A small drawing of how the pictures of a table will stand.
class ArrangementPreview final : public QWidget {
 public:
  ArrangementPreview();

  void Show(tools::ImageTableStyle style);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  tools::ImageTableStyle m_style;
};

}  // namespace quill::ui
