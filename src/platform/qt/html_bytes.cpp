#include "platform/qt/html_bytes.h"

#include <QStringDecoder>

namespace quill::platform::qt {

QString HtmlText(const QByteArray& bytes) {
  // Without a mark, zero bytes around the "<" of the first tag tell UTF-16 as well.
  const auto encoding = QStringConverter::encodingForData(bytes, u'<');
  QString text = QStringDecoder(encoding.value_or(QStringConverter::Utf8))(bytes);
  while (text.endsWith(QChar(u'\0'))) text.chop(1);  // some owners count the terminator in
  return text;
}

}  // namespace quill::platform::qt
