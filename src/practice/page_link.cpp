#include "practice/page_link.h"

#include <QUrl>

#include "practice/link_parts.h"
#include "ui/kit/qt_text.h"

namespace quill::practice {
namespace {

QString Escaped(const QString& text) {
  return QString::fromLatin1(QUrl::toPercentEncoding(text));
}

}  // namespace

QString PageLinkText(const LinkBase& base, const QString& section, const QString& title,
                     const QString& pageId) {
  const QString sectionId = ui::ToQt(SectionId(section.toStdString()));
  const QString account = ui::ToQt(kAccount);
  const QString webLine = base.webAddress + "/view.aspx?resid=" + account.toUpper() +
                          "!101&id=documents&wd=target%28" + Escaped(section) + ".one%7C" +
                          sectionId.mid(1, 36) + "%2F" + Escaped(title) + "%7C" + pageId.mid(1, 36) +
                          "%2F%29";
  const QString client = "onenote:https://" + base.documentHost + "/" + account + "/Documents/" +
                         ui::ToQt(kNotebookName) + "/" + Escaped(section) + ".one#" + Escaped(title) +
                         "&section-id=" + sectionId + "&page-id=" + pageId + "&end";
  return webLine + "\r\n" + client + "\r\n";
}

}  // namespace quill::practice
