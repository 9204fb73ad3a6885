#pragma once
#include <functional>
#include <string>

namespace quill::shell {
class StringTable;
}

namespace quill::ui {

class EquationHost;
class WindowFactory;

/// Adds the dialogs of `shell/engine_requests.h` and `shell/equation_request.h`; `tell` shows a text when the
/// web views cannot be loaded. What is passed in must outlive the factory. GUI thread.
void AddEngineWindows(WindowFactory& windows, const shell::StringTable& strings, EquationHost& equations,
                      std::function<void(const std::string&)> tell);

}  // namespace quill::ui
