#pragma once
#include <memory>
#include <string>

#include "base/result.h"
#include "shell/string_table.h"
#include "ui/equation_view.h"

namespace quill::ui {

/// The equation view's place in the program: made, with the web views' plug-in, for the first equation, and
/// kept for the next ones. Destroyed before the application. GUI thread.
class EquationHost {
 public:
  explicit EquationHost(const shell::StringTable& strings);
  ~EquationHost();

  /// The view. Another address of MathJax than at the last call makes a new one: no window may use the old
  /// one then. Fails, with the plug-in's reason, when the plug-in cannot be loaded.
  Result<EquationView*> View(const std::string& mathJaxAddress);

 private:
  const shell::StringTable& m_strings;
  std::string m_address;
  std::unique_ptr<EquationView> m_view;
};

}  // namespace quill::ui
