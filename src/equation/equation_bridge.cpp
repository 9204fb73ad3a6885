#include "equation/equation_bridge.h"

namespace quill::equation {

void EquationBridge::JsCall(const QString& message) {
  if (message == QLatin1String("Save")) emit Save();
}

}  // namespace quill::equation
