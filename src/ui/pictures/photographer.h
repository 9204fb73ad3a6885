#pragma once
#include <QDir>
#include <QElapsedTimer>
#include <QObject>
#include <QRect>
#include <QTimer>
#include <deque>
#include <memory>
#include <string>

#include "ui/pictures/scenes.h"

namespace quill::ui {

/// Takes the pictures of scenes, one after the other, from the event loop, and ends the program with 0, or
/// with 1 when a picture could not be taken or shows texts that are cut off. GUI thread.
class Photographer final : public QObject {
 public:
  /// Writes NAME-SUFFIX.png into an existing folder. `strings` outlives this object.
  Photographer(const shell::StringTable& strings, const QDir& folder, QString suffix);

  /// Begins with the scenes whose name contains `only`.
  void Start(const QString& only);

 private:
  void OpenNext();
  void LookAgain();
  void Take(const QList<QWidget*>& windows);
  void Complain(const QString& what);

  const shell::StringTable& m_strings;
  QDir m_folder;
  QString m_suffix;
  std::deque<Scene> m_scenes;
  QTimer m_timer;
  QElapsedTimer m_sinceOpened;
  std::unique_ptr<Studio> m_studio;
  Look m_look;
  QList<QRect> m_lastPlaces;  ///< where the windows were at the last look
  int m_calmLooks = 0;        ///< looks at which nothing had moved
  bool m_allWell = true;
};

}  // namespace quill::ui
