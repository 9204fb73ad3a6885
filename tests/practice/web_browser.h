#pragma once
#include <QDesktopServices>
#include <QObject>
#include <QStringList>
#include <QUrl>

namespace quill::test {

/// Stands in for the system's browser and file manager, and keeps the addresses that they are given.
class WebBrowser final : public QObject {
  Q_OBJECT
 public:
  WebBrowser() {
    for (const char* scheme : kSchemes) QDesktopServices::setUrlHandler(scheme, this, "Open");
  }
  ~WebBrowser() override {
    for (const char* scheme : kSchemes) QDesktopServices::unsetUrlHandler(scheme);
  }

  QStringList opened;

 public slots:
  void Open(const QUrl& url) { opened += url.toString(); }

 private:
  static constexpr const char* kSchemes[] = {"http", "https", "file", "onenote"};
};

}  // namespace quill::test
