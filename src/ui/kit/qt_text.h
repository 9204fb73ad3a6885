#pragma once
#include <QString>
#include <string>
#include <string_view>

namespace quill::ui {

/// UTF-8 text of the core as Qt's own.
inline QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// Qt's text as UTF-8.
inline std::string FromQt(const QString& text) {
  return text.toStdString();
}

/// A label's text as the name of what it stands beside: without the colon at its end.
inline QString WithoutColon(QString label) {
  while (label.endsWith(u':') || label.endsWith(u'：')) label.chop(1);
  return label.trimmed();
}

}  // namespace quill::ui
