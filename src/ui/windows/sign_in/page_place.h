#pragma once
#include <QUrl>
#include <QWidget>

#include "shell/string_table.h"

class QLabel;

namespace quill::ui {

class ElidedLabel;

/// How much a page's address says about who reads along.
enum class PageGuard { Encrypted, ThisMachine, Unencrypted };

PageGuard GuardOf(const QUrl& url);

/// The server of an address as it is named on the wire, so that no letter can pass for another, with a port
/// that is not the usual one. A very long name loses its beginning, for its end says whose it is.
QString ServerName(const QUrl& url);

/// How the texts of a window's head stand: at its beginning, in whatever direction they are themselves.
Qt::Alignment BesideTheLock();

/// The line that tells where a page is from: a lock, the server's name, and what the lock means. GUI thread.
class PagePlace final : public QWidget {
  Q_OBJECT
 public:
  explicit PagePlace(const shell::StringTable& strings);

  /// An invalid address empties the line.
  void Show(const QUrl& url);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void Paint();

  const shell::StringTable& m_strings;
  QLabel* m_sign;
  QLabel* m_server;
  ElidedLabel* m_words;
  QUrl m_url;
};

}  // namespace quill::ui
