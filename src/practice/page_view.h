#pragma once
#include <QVariant>
#include <QVariantList>
#include <QWebEngineView>
#include <functional>
#include <vector>

class QWebEngineProfile;

namespace quill::practice {

/// What the page's script can say to the program. Every slot can be called by the script.
class PageHost final : public QObject {
  Q_OBJECT
 public:
  using QObject::QObject;

 public slots:
  void Ready() { emit IsReady(); }
  void Changed() { emit HasChanged(); }
  void Clipboard(const QString& kind) { emit WantsClipboard(kind); }
  void Link(const QString& address) { emit WantsLink(address); }
  void Hover(const QString& address) { emit IsOverLink(address); }

 signals:
  void IsReady();
  void HasChanged();
  void WantsClipboard(QString kind);
  void WantsLink(QString address);   ///< a link was pressed with the command key
  void IsOverLink(QString address);  ///< "" when the pointer has left it
};

/// The web view of one editable page. Our scripts live in a world of their own; scripts in a page's content
/// never run, and nothing but the page's own resources is ever loaded. GUI thread.
class PageView final : public QWebEngineView {
  Q_OBJECT
 public:
  /// The result of a call, true when the function yields none; invalid when the script failed or did not
  /// answer in five seconds.
  using Answer = std::function<void(const QVariant&)>;

  explicit PageView(QWidget* parent = nullptr);
  ~PageView() override;

  /// Calls `quill.FUNCTION(arguments…)`. Calls are performed in order; those made before the page is ready
  /// wait for it. `answer` is called once, later.
  void Call(const QString& function, const QVariantList& arguments = {}, Answer answer = {});

  bool IsReady() const { return m_ready; }
  PageHost& Host() { return *m_host; }

 signals:
  /// The engine's process died: the page is being loaded anew and shows nothing yet.
  void Lost();

 protected:
  void contextMenuEvent(QContextMenuEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void Run(const QString& code, const Answer& answer);
  void OnReady();
  void ApplyTheme();

  QWebEngineProfile* m_profile;
  PageHost* m_host;
  bool m_ready = false;
  std::vector<std::function<void()>> m_waiting;
};

}  // namespace quill::practice
