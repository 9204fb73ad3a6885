#include "ui/kit/list_icon.h"

#include <QSize>
#include <QString>

#include "ui/kit/qt_text.h"

// Resources of a static library are there only for those who ask for them; the macro must stand outside
// every namespace.
static void LoadListIcons() {
  Q_INIT_RESOURCE(icons);
}

namespace quill::ui {

QIcon ListIcon(std::string_view name) {
  LoadListIcons();
  QIcon icon;
  for (const int size : {16, 24, 32, 48, 64}) {
    icon.addFile(QStringLiteral(":/icons/%1%2.png").arg(ToQt(name)).arg(size), QSize(size, size));
  }
  return icon;
}

}  // namespace quill::ui
