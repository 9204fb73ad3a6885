#pragma once
#include <QWidget>
#include <string>

#include "files/links/variable_link.h"
#include "shell/string_table.h"
#include "ui/kit/latest_job.h"

class QLabel;

namespace quill::ui {

class ElidedLabel;

/// Two lines that tell what a click on a link would do on this machine, and to which file. The disk, which
/// may be a slow share, is looked at on another thread. GUI thread.
class LinkPreview final : public QWidget {
  Q_OBJECT
 public:
  LinkPreview(const shell::StringTable& strings, files::VariableRoots roots);

  /// Tells it for this text of the path field; nothing for an empty one.
  void Show(const std::string& link);

  /// What the first line says.
  QString words() const;

 signals:
  /// The lines have changed; not emitted for every `Show`, since a newer one may take its place.
  void Changed();

 private:
  void Tell(std::string_view key, const std::string& path = {});

  const shell::StringTable& m_strings;
  files::VariableRoots m_roots;
  QLabel* m_words;
  ElidedLabel* m_path;
  LatestJob m_look;
};

}  // namespace quill::ui
