#pragma once
#include <QStringList>

#include "base/result.h"
#include "ui/web_views.h"

namespace quill::ui {

/// Where the plug-in is looked for, in this order: beside the program, in ../lib and in ../lib/quillmenu.
QStringList WebPluginPlaces();

/// Loads the web views' plug-in, at the first call, and returns its root object, which lives until the
/// program ends. Fails with a text for the reader: not found, with the places, or the loader's reason.
///
/// GUI thread. Loading maps the web engine and the first view starts it (about 0.3 s and 100 MB together), so
/// nothing may call it at start-up. Nothing has to be prepared before the QApplication is made; in particular
/// not `Qt::AA_ShareOpenGLContexts`, which alone costs 40 ms and 57 MB at every start.
Result<WebViews*> LoadWebViews();

}  // namespace quill::ui
