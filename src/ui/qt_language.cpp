#include "ui/qt_language.h"

#include <QCoreApplication>
#include <QLibraryInfo>

#include "ui/kit/qt_text.h"

namespace quill::ui {

void QtLanguage::Use(std::string_view language) {
  QCoreApplication::removeTranslator(&m_translator);
  if (language == "en") return;
  // Qt names simplified Chinese by its country.
  const QString name = language == "zh-Hans" ? QStringLiteral("zh_CN") : ToQt(language);
  if (m_translator.load(QStringLiteral("qtbase_") + name,
                        QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QCoreApplication::installTranslator(&m_translator);
  }
}

}  // namespace quill::ui
