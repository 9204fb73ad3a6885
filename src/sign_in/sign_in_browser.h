#pragma once
#include <QTimer>
#include <optional>

#include "shell/string_table.h"
#include "ui/sign_in_view.h"

class QWebEngineLoadingInfo;
class QWebEngineProfile;
class QWebEngineView;

namespace quill::sign_in {

class SignInPage;

/// The sign-in view on the web engine: one page at a time, each session with a profile of its own.
///
/// Cookies are deleted by leaving their profile behind: the engine deletes single cookies at some time after
/// the call and tells of some of them only, while a new profile has none from the first moment.
class SignInBrowser final : public ui::SignInView {
 public:
  explicit SignInBrowser(const shell::StringTable& strings);
  ~SignInBrowser() override;

  QWidget& Widget() override;
  void Listen(ui::SignInEvents events) override { m_events = std::move(events); }
  void ShowLoading(const QUrl& service) override;
  void Load(const QUrl& url) override;
  void Back() override;
  bool CanGoBack() const override;
  void Reload() override;
  void ClearCookiesAndCache(std::function<void()> done) override;

 private:
  void Begin();
  void End();
  void OnLoading(const QWebEngineLoadingInfo& info);
  void TellWhatIsThere(const QUrl& url);
  void OnOwnFinished(const QUrl& url);
  void OnStopped(const QUrl& url);
  void OnTitle(const QString& title);
  void OnLost();
  void Tell(const QUrl& url, ui::PageLoad load);
  bool ShowsService() const;

  const shell::StringTable& m_strings;
  QWebEngineView* m_view;
  QWebEngineProfile* m_session = nullptr;
  SignInPage* m_page = nullptr;
  ui::SignInEvents m_events;
  QUrl m_requested;            ///< the last address given to `Load`
  std::optional<QUrl> m_next;  ///< to be loaded when the "Loading" page is there
  bool m_awaitsOwn = false;    ///< the "Loading" page is not there yet
  bool m_isLoading = false;    ///< a page of the service is on its way
};

}  // namespace quill::sign_in
