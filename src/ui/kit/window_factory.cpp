#include "ui/kit/window_factory.h"

#include "ui/kit/window_place.h"

namespace quill::ui {

QWidget* WindowFactory::Show(const std::any& request, const Answer& answer) const {
  const auto maker = m_makers.find(std::type_index(request.type()));
  if (maker == m_makers.end()) return nullptr;
  QWidget* window = maker->second(request, answer);
  if (window == nullptr) return nullptr;
  BringToFront(*window);
  return window;
}

}  // namespace quill::ui
