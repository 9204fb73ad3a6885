#pragma once
#include <QObject>

#include "ui/web_views.h"

namespace quill::practice {

/// The plug-in's root object. Web views are painted without OpenGL (the engine's software path). With it, a
/// context would have to be shared from before the QApplication was made (`Qt::AA_ShareOpenGLContexts`),
/// which costs every start of the tray program 40 ms and 57 MB (measured with a software GL driver), and a
/// display without GL would end the process at the first view.
class WebViewsPlugin final : public QObject, public ui::WebViews {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID "quillmenu.WebViews/3")
  Q_INTERFACES(quill::ui::WebViews)
 public:
  WebViewsPlugin();
  Result<std::unique_ptr<ui::PracticeNotebook>> CreatePracticeNotebook(
      const ui::PracticeOptions& options) override;
  std::unique_ptr<ui::EquationView> CreateEquationView(const ui::EquationOptions& options) override;
  std::unique_ptr<ui::SignInView> CreateSignInView(const shell::StringTable& strings) override;
  std::unique_ptr<ui::FindReplaceView> CreateFindReplaceView(const shell::StringTable& strings) override;
};

}  // namespace quill::practice
