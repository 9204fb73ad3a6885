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
/// GUI thread. Loading maps the web engine (a few hundred milliseconds), so nothing may call it at start-up.
/// The program must have set `Qt::AA_ShareOpenGLContexts` before its QApplication was made.
Result<WebViews*> LoadWebViews();

}  // namespace quill::ui
