#include "practice/web_views_plugin.h"

#include <QCoreApplication>
#include <QOpenGLContext>
#include <QQuickWindow>
#include <utility>

#include "equation/equation_stack.h"
#include "equation/mathjax_source.h"
#include "find_replace/find_replace_browser.h"
#include "practice/built_in_pages.h"
#include "practice/practice_notebook.h"
#include "sign_in/sign_in_browser.h"

QT_BEGIN_NAMESPACE
Q_GUI_EXPORT void qt_gl_set_global_share_context(QOpenGLContext* context);
QT_END_NAMESPACE

namespace quill::practice {
namespace {

/// The engine reads the format of the shared context even when it does not use it, and crashes when there is
/// none. This one is never created on the display, so that no driver is loaded.
void GiveShareContext() {
  if (QOpenGLContext::globalShareContext()) return;
  qt_gl_set_global_share_context(new QOpenGLContext);
  qAddPostRoutine([] {  // runs after the engine's own, which is added later
    QOpenGLContext* const ours = QOpenGLContext::globalShareContext();
    qt_gl_set_global_share_context(nullptr);
    delete ours;
  });
}

}  // namespace

WebViewsPlugin::WebViewsPlugin() {
  QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
  GiveShareContext();
  equation::RegisterEquationScheme();
}

Result<std::unique_ptr<ui::PracticeNotebook>> WebViewsPlugin::CreatePracticeNotebook(
    const ui::PracticeOptions& options) {
  Result<PageStore> store = PageStore::Open(options.folder, BuiltInPages());
  if (!store.ok()) return Failure{store.error()};
  auto window = std::make_unique<PracticeWindow>(
      std::move(*store), LinkBase{options.documentHost, options.webAddress}, options.strings);
  return std::unique_ptr<ui::PracticeNotebook>(std::make_unique<Notebook>(std::move(window)));
}

std::unique_ptr<ui::EquationView> WebViewsPlugin::CreateEquationView(const ui::EquationOptions& options) {
  return std::make_unique<equation::Equations>(options);
}

std::unique_ptr<ui::SignInView> WebViewsPlugin::CreateSignInView(const shell::StringTable& strings) {
  return std::make_unique<sign_in::SignInBrowser>(strings);
}

std::unique_ptr<ui::FindReplaceView> WebViewsPlugin::CreateFindReplaceView(
    const shell::StringTable& strings) {
  return std::make_unique<find_replace::FindReplaceBrowser>(strings);
}

}  // namespace quill::practice
