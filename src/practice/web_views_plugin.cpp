#include "practice/web_views_plugin.h"

#include <QQuickWindow>
#include <utility>

#include "practice/built_in_pages.h"
#include "practice/practice_notebook.h"

namespace quill::practice {

WebViewsPlugin::WebViewsPlugin() {
  QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

Result<std::unique_ptr<ui::PracticeNotebook>> WebViewsPlugin::CreatePracticeNotebook(
    const ui::PracticeOptions& options) {
  Result<PageStore> store = PageStore::Open(options.folder, BuiltInPages());
  if (!store.ok()) return Failure{store.error()};
  auto window = std::make_unique<PracticeWindow>(
      std::move(*store), LinkBase{options.documentHost, options.webAddress}, options.strings);
  return std::unique_ptr<ui::PracticeNotebook>(std::make_unique<Notebook>(std::move(window)));
}

}  // namespace quill::practice
