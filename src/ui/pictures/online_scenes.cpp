#include "ui/pictures/online_scenes.h"

#include <QFileInfo>
#include <QImage>
#include <algorithm>
#include <utility>

#include "shell/sign_in_request.h"
#include "ui/pictures/find_replace_scene.h"
#include "ui/pictures/scene_parts.h"
#include "ui/web_plugin.h"
#include "ui/windows/sign_in/win_login_online_onenote.h"

namespace quill::ui {
namespace {

/// The real view at the moment before the service answers: it loads nothing.
class WaitingView final : public SignInView {
 public:
  WaitingView(std::unique_ptr<SignInView> view, bool fails) : m_view(std::move(view)), m_fails(fails) {}

  QWidget& Widget() override { return m_view->Widget(); }
  void Listen(SignInEvents events) override { m_events = std::move(events); }
  void ShowLoading(const QUrl& service) override { m_view->ShowLoading(service); }
  void Load(const QUrl& url) override {
    m_events.onHost(url);
    m_events.onProgress(35);
    if (m_fails) m_events.onFinished(url.toEncoded(), PageLoad::NotReached);
  }
  void Back() override {}
  bool CanGoBack() const override { return false; }
  void Reload() override {}
  void ClearCookiesAndCache(std::function<void()> done) override { done(); }

 private:
  std::unique_ptr<SignInView> m_view;
  bool m_fails;
  SignInEvents m_events;
};

/// Whether the engine has painted: a page of one colour is none.
bool IsPainted(QWidget& view) {
  const QImage image = view.grab().toImage();
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (image.pixel(x, y) != image.pixel(0, 0)) return true;
    }
  }
  return false;
}

Look OpenSignIn(Studio& studio, bool fails) {
  const Result<WebViews*> views = LoadWebViews();
  if (!views.ok()) return [] { return QList<QWidget*>(); };
  auto view = std::make_unique<WaitingView>((*views)->CreateSignInView(studio.strings), fails);
  QWidget* page = &view->Widget();
  auto* window = new MWinLoginOnlineOneNote(studio.strings, std::move(view), {Endpoints{}},
                                            [](const std::optional<online::SignInResult>&) {});
  BringToFront(*window);
  return [window = QPointer(window), page, fails]() -> QList<QWidget*> {
    if (!window || (!fails && !IsPainted(*page))) return {};
    return {window};
  };
}

bool HasWebViews() {
  return std::ranges::any_of(WebPluginPlaces(),
                             [](const QString& place) { return QFileInfo::exists(place); });
}

}  // namespace

std::vector<Scene> OnlineScenes() {
  if (!HasWebViews()) return {};
  return {{QStringLiteral("find-and-replace"), OpenFindReplace},
          {QStringLiteral("sign-in"), [](Studio& studio) { return OpenSignIn(studio, false); }},
          {QStringLiteral("sign-in-not-reached"), [](Studio& studio) { return OpenSignIn(studio, true); }}};
}

}  // namespace quill::ui
