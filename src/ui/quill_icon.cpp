#include "ui/quill_icon.h"

#include <QDir>
#include <QStringList>

// Resources of a static library are there only for those who ask for them; the macro must stand outside
// every namespace.
static void LoadIconResource() {
  Q_INIT_RESOURCE(icons);
}

namespace quill::ui {

QIcon QuillIcon(bool onDark) {
  LoadIconResource();
  const QString name = onDark ? QStringLiteral("QuillDark") : QStringLiteral("Quill");
  QIcon icon;
  for (const QString& file : QDir(QStringLiteral(":/icons")).entryList({name + "[0-9]*.png"})) {
    icon.addFile(QStringLiteral(":/icons/") + file);
  }
  return icon;
}

}  // namespace quill::ui
