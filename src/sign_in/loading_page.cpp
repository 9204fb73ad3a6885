#include "sign_in/loading_page.h"

#include <QFile>
#include <QGuiApplication>
#include <QLocale>

namespace quill::sign_in {

QString LoadingPage(const shell::StringTable& strings, const QString& host, bool dark) {
  QFile file(":/html/Loading.html");
  QString page = file.open(QFile::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString("{title}<p>{text}");
  const auto put = [&page](const char* name, const QString& text) {
    page.replace(QLatin1String(name), text.toHtmlEscaped());
  };
  put("{language}", QLocale().bcp47Name());
  put("{direction}", QGuiApplication::isRightToLeft() ? "rtl" : "ltr");
  put("{look}", dark ? "dark" : "light");
  put("{text}", QString::fromStdString(std::string(strings.Text("strSignInOpeningHint"))));
  // The host comes last: what it holds is not looked through for names.
  put("{title}", QString::fromStdString(strings.Format("strSignInOpening", {host.toStdString()})));
  return page;
}

}  // namespace quill::sign_in
