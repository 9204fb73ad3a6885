#include "ui/windows/notebooks/notebook_icon.h"

#include "ui/kit/list_icon.h"

namespace quill::ui {

QIcon NotebookIconOf(std::string_view name) {
  return ListIcon(name);
}

}  // namespace quill::ui
