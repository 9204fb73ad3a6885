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

}  // namespace quill::ui
