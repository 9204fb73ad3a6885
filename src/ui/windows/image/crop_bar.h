#pragma once
#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "shell/string_table.h"
#include "ui/windows/image/crop_frame.h"

class QCheckBox;
class QPushButton;
class QSpinBox;

namespace quill::ui {

/// The selection in numbers: place and size in picture pixels, the lock of the ratio, all and nothing.
class CropBar final : public QWidget {
 public:
  using Change = std::function<void(CropFrame&)>;

  /// `apply` is handed what the user wants to be done to the selection.
  CropBar(const shell::StringTable& strings, std::function<void(const Change&)> apply,
          QWidget* parent = nullptr);

  /// Shows a selection without calling `apply`.
  void Show(const CropFrame& frame);

 private:
  QSpinBox* AddNumber(const std::string& key, const std::string& name, Change (*change)(int));

  const shell::StringTable& m_strings;
  std::function<void(const Change&)> m_apply;
  QSpinBox* m_x;
  QSpinBox* m_y;
  QSpinBox* m_width;
  QSpinBox* m_height;
  QCheckBox* m_ratio;
  QPushButton* m_clear;
};

}  // namespace quill::ui
