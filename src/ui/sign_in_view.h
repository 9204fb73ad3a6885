#pragma once
#include <QByteArray>
#include <QString>
#include <QUrl>
#include <functional>

class QWidget;

namespace quill::ui {

/// How a page has finished loading.
enum class PageLoad {
  Shown,       ///< something is there to be seen, be it an error of the service
  Empty,       ///< the server answered, with nothing to be seen
  NotReached,  ///< nothing came
  NotTrusted   ///< the server could not prove who it is; nothing of its page was taken
};

/// What a sign-in view tells. Everything on the GUI thread, never from within a call to the view.
struct SignInEvents {
  /// A page of the service has finished loading; its address with every escape that was in it. A load that
  /// another one replaced does not count, and neither does the "Loading" page.
  std::function<void(const QByteArray& url, PageLoad load)> onFinished;
  std::function<void(const QString& title)> onTitle;  ///< empty for a page without one; never an address
  std::function<void(const QUrl& place)> onHost;      ///< where the shown page is from; invalid: nowhere
  std::function<void(int percent)> onProgress;        ///< 100 when nothing is loading
  std::function<void()> onLost;                       ///< the page's process has ended
};

/// A small browser for the pages of a sign-in, with a session of its own that nothing outlives. It stays in
/// its widget: no page opens windows or other programs, reads files or the clipboard, stores a download, or
/// gets a permission. GUI thread. Destroying the view ends everything; no event comes afterwards.
class SignInView {
 public:
  virtual ~SignInView() = default;

  /// The page, named for screen readers. Belongs to the view: whoever puts it into a window destroys the view
  /// before that widget.
  virtual QWidget& Widget() = 0;

  /// Whom to tell. To be called before the first page.
  virtual void Listen(SignInEvents events) = 0;

  /// Shows that the service at an address is being opened. Stays until the next page has something to show.
  virtual void ShowLoading(const QUrl& service) = 0;

  /// Loads a page, after the "Loading" page when that was asked for just before. Only http and https.
  virtual void Load(const QUrl& url) = 0;

  virtual void Back() = 0;  ///< to the page of the service before this one; nothing without one
  virtual bool CanGoBack() const = 0;
  virtual void Reload() = 0;

  /// Deletes every cookie, the cache and all else that pages have stored, and forgets the page and those
  /// before it. `done` is called when nothing of it can be sent any more.
  virtual void ClearCookiesAndCache(std::function<void()> done) = 0;
};

}  // namespace quill::ui
