#include "ui/web_plugin.h"

#include <unistd.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QPluginLoader>

namespace quill::ui {
namespace {

constexpr const char* kSandboxSwitch = "QTWEBENGINE_DISABLE_SANDBOX";

/// The engine's sandbox cannot be set up by root (containers); everybody else keeps it.
void AllowRoot() {
  if (geteuid() == 0 && !qEnvironmentVariableIsSet(kSandboxSwitch)) qputenv(kSandboxSwitch, "1");
}

}  // namespace

QStringList WebPluginPlaces() {
  const QDir program(QCoreApplication::applicationDirPath());
  QStringList places;
  for (const char* folder : {".", "../lib", "../lib/quillmenu", "../PlugIns"}) {
    for (const char* name : {"libquillweb.so", "libquillweb.dylib"}) {
      places += QDir::cleanPath(program.absoluteFilePath(QString("%1/%2").arg(folder, name)));
    }
  }
  return places;
}

Result<WebViews*> LoadWebViews() {
  const QStringList places = WebPluginPlaces();
  for (const QString& place : places) {
    if (!QFileInfo::exists(place)) continue;
    AllowRoot();
    QPluginLoader loader(place);
    auto* views = qobject_cast<WebViews*>(loader.instance());
    if (!views) return Failure{place.toStdString() + ": " + loader.errorString().toStdString()};
    return views;
  }
  return Failure{"quillweb was not found in " + places.join(", ").toStdString()};
}

}  // namespace quill::ui
