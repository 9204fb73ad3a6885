#include "ui/equation_host.h"

#include <QCoreApplication>

#include "tools/mathjax_folder.h"
#include "ui/kit/qt_text.h"
#include "ui/web_plugin.h"

namespace quill::ui {

EquationHost::EquationHost(const shell::StringTable& strings) : m_strings(strings) {}

EquationHost::~EquationHost() = default;

Result<EquationView*> EquationHost::View(const std::string& mathJaxAddress) {
  if (m_view != nullptr && m_address == mathJaxAddress) return m_view.get();
  const Result<WebViews*> views = LoadWebViews();
  if (!views.ok()) return Failure{views.error()};
  m_view.reset();
  const Result<std::filesystem::path> files =
      tools::FindMathJax(FromQt(QCoreApplication::applicationDirPath()));
  m_view = (*views)->CreateEquationView({files.ValueOr({}), m_strings, ToQt(mathJaxAddress)});
  m_address = mathJaxAddress;
  return m_view.get();
}

}  // namespace quill::ui
