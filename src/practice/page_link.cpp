#include "practice/page_link.h"

#include <QRegularExpression>
#include <QUrl>
#include <QUuid>

namespace quill::practice {
namespace {

constexpr const char* kAccount = "7c1f0a93b2d84e65";
constexpr const char* kNotebook = "Practice";

/// A section's id: the same for the same name, everywhere.
QString SectionId(const QString& section) {
  static const QUuid kNamespace("{5d0c7a1e-2f43-4b8a-9c6d-3e1f7a90b254}");
  return QUuid::createUuidV5(kNamespace, section).toString().toUpper();
}

QString Escaped(const QString& text) {
  return QString::fromLatin1(QUrl::toPercentEncoding(text));
}

}  // namespace

QString PageLinkText(const LinkBase& base, const QString& section, const QString& title,
                     const QString& pageId) {
  const QString sectionId = SectionId(section);
  const QString webLine = base.webAddress + "/view.aspx?resid=" + QString(kAccount).toUpper() +
                          "!101&id=documents&wd=target%28" + Escaped(section) + ".one%7C" +
                          sectionId.mid(1, 36) + "%2F" + Escaped(title) + "%7C" + pageId.mid(1, 36) +
                          "%2F%29";
  const QString client = "onenote:https://" + base.documentHost + "/" + kAccount + "/Documents/" + kNotebook +
                         "/" + Escaped(section) + ".one#" + Escaped(title) + "&section-id=" + sectionId +
                         "&page-id=" + pageId + "&end";
  return webLine + "\r\n" + client + "\r\n";
}

QString PageIdInLink(const QString& link) {
  static const QRegularExpression kPageId("&page-id=(?:\\{|%7B)([0-9A-Fa-f-]{36})(?:\\}|%7D)",
                                          QRegularExpression::CaseInsensitiveOption);
  const QRegularExpressionMatch match = kPageId.match(link);
  return match.hasMatch() ? "{" + match.captured(1).toUpper() + "}" : QString();
}

}  // namespace quill::practice
