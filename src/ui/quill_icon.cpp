#include "ui/quill_icon.h"

#include <QSize>
#include <QString>

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
  // With its size told, a picture is only read when it is shown.
  for (const int size : {16, 22, 24, 32, 44, 48, 64, 66, 72, 128}) {
    icon.addFile(QStringLiteral(":/icons/%1%2.png").arg(name).arg(size), QSize(size, size));
  }
  return icon;
}

}  // namespace quill::ui
