#pragma once
#include <QByteArray>
#include <QString>

namespace quill::platform::qt {

/// The text of a clipboard's raw "text/html" bytes: UTF-16 or UTF-32 when a byte-order mark or the zero bytes
/// of its first tag say so, otherwise UTF-8. The mark and closing zeros are left out.
QString HtmlText(const QByteArray& bytes);

}  // namespace quill::platform::qt
