#pragma once
#include <QList>
#include <QString>
#include <QTemporaryDir>
#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

#include "platform/user_interface.h"
#include "shell/string_table.h"
#include "ui/kit/file_panels.h"
#include "ui/kit/progress_window.h"
#include "ui/menu_builder.h"
#include "ui/menu_window.h"
#include "ui/palette_host.h"

namespace quill::ui {

/// What the windows of the pictures stand on. One is made for each picture. GUI thread.
struct Studio {
  explicit Studio(const shell::StringTable& texts);
  /// Closes every window that is still open.
  ~Studio();
  Studio(const Studio&) = delete;

  const shell::StringTable& strings;
  QTemporaryDir folder;  ///< for files that a window reads; no picture shows its path
  PanelMemory panels;
  ActionMenu menu;
  PaletteHost palette;
  ProgressWindows progress;
  std::unique_ptr<platform::Progress> job;
  std::unique_ptr<QWidget> stage;  ///< a window that others stand beside
};

/// The windows that belong into a picture, first the one at the back; none until everything is there. Looked
/// at again and again.
using Look = std::function<QList<QWidget*>()>;

/// One picture of the program.
struct Scene {
  QString name;
  std::function<Look(Studio& studio)> open;
};

/// Every window of the program, with what a user would have in it.
std::vector<Scene> Scenes();

}  // namespace quill::ui
