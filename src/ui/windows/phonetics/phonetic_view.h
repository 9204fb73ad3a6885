#pragma once
#include <QStackedWidget>
#include <QString>

#include "shell/string_table.h"
#include "tools/phonetics_lookup.h"

class QLabel;
class QPlainTextEdit;

namespace quill::ui {

/// A transcription in large letters, and below it where it comes from or how the search goes. GUI thread.
class PhoneticView final : public QWidget {
  Q_OBJECT
 public:
  PhoneticView(const shell::StringTable& strings, tools::DictionaryHosts hosts);

  void ShowNothing();
  void ShowBusy();
  void ShowStopped();

  void ShowAnswer(const tools::PhoneticAnswer& answer);

  /// After `ShowAnswer` without a transcription: somebody else says so, only the reasons stay.
  void LeaveOutSummary();

 signals:
  /// The user has seen enough of `ShowBusy`.
  void StopPressed();

 private:
  QWidget* NewSourcePage();
  QWidget* NewBusyPage();
  void Tell(const QString& summary, const QString& detail);
  QString Summary(const tools::PhoneticAnswer& answer) const;
  QString Reasons(const tools::PhoneticAnswer& answer) const;
  QString Text(std::string_view key) const;

  const shell::StringTable& m_strings;
  tools::DictionaryHosts m_hosts;
  QPlainTextEdit* m_text;
  QStackedWidget* m_pages;
  QLabel* m_summary;
  QLabel* m_detail;
};

}  // namespace quill::ui
