// Renders every window of Quill Menu into PNG files, for the documents and to be looked at while one works on
// a window. QT_SCALE_FACTOR and QT_QPA_PLATFORM work as always.
#include <QApplication>
#include <QCommandLineParser>
#include <QStyleFactory>
#include <cstdio>

#include "shell/language.h"
#include "ui/appearance.h"
#include "ui/kit/plain_style.h"
#include "ui/kit/qt_text.h"
#include "ui/pictures/photographer.h"
#include "ui/qt_language.h"
#include "ui/quill_icon.h"

namespace {

using quill::ui::FromQt;

struct Arguments {
  QDir folder;
  bool dark;
  bool rightToLeft;
  std::string language;
  QString only;
};

Arguments ParseArguments(const QApplication& app) {
  QCommandLineParser parser;
  const QCommandLineOption dark(QStringLiteral("dark"), QStringLiteral("light texts on a dark ground"));
  const QCommandLineOption rtl(QStringLiteral("rtl"), QStringLiteral("mirrored, as for Arabic"));
  const QCommandLineOption scale(QStringLiteral("scale"), QStringLiteral("two pixels for one: 2"),
                                 QStringLiteral("factor"));
  const QCommandLineOption language(QStringLiteral("language"),
                                    QStringLiteral("of the texts: de, zh-Hans, …"), QStringLiteral("tag"),
                                    QStringLiteral("en"));
  const QCommandLineOption only(QStringLiteral("only"), QStringLiteral("scenes whose name contains this"),
                                QStringLiteral("text"));
  parser.addHelpOption();
  parser.addOptions({dark, rtl, scale, language, only});
  parser.addPositionalArgument(QStringLiteral("DIR"), QStringLiteral("where the pictures go"));
  parser.process(app);
  const QStringList folders = parser.positionalArguments();
  const std::string tag = FromQt(parser.value(language));
  if (folders.size() != 1 || tag.empty() || !quill::shell::IsLanguageSetting(tag) ||
      !QDir().mkpath(folders.front())) {
    parser.showHelp(2);
  }
  return {QDir(folders.front()), parser.isSet(dark), parser.isSet(rtl), tag, parser.value(only)};
}

/// Qt reads the scale before the application is there.
void UseScale(int argc, char** argv) {
  for (int i = 1; i + 1 < argc; ++i) {
    if (QByteArray(argv[i]) == "--scale") qputenv("QT_SCALE_FACTOR", argv[i + 1]);
  }
}

}  // namespace

int main(int argc, char** argv) {
  UseScale(argc, argv);
  QApplication app(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setApplicationName(QStringLiteral("Quill Menu"));
  QApplication::setWindowIcon(quill::ui::QuillIcon(false));
  QApplication::setCursorFlashTime(0);  // the caret is in every picture or in none
  const Arguments arguments = ParseArguments(app);
  if (arguments.dark) QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  quill::ui::PlainStyle::UseWhereNothingIsNative();
  if (arguments.dark) QApplication::setPalette(quill::ui::DarkPalette());
  const quill::shell::StringTable strings(arguments.language);
  quill::ui::QtLanguage qtLanguage;
  qtLanguage.Use(arguments.language);
  QApplication::setLayoutDirection(arguments.rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
  quill::ui::Photographer photographer(strings, arguments.folder,
                                       arguments.dark ? QStringLiteral("-dark") : QStringLiteral("-light"));
  photographer.Start(arguments.only);
  return QApplication::exec();
}
