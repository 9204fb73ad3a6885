#pragma once
#include <QString>

namespace quill::practice {

/// What the links of this notebook's pages are made of.
struct LinkBase {
  QString documentHost;  ///< host of client links
  QString webAddress;    ///< beginning of web links
};

/// What "Copy Link to Page" puts on the clipboard: a web line and the client link, each ended by CR LF.
QString PageLinkText(const LinkBase& base, const QString& section, const QString& title,
                     const QString& pageId);

}  // namespace quill::practice
