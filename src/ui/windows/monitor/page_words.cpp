#include "ui/windows/monitor/page_words.h"

#include "ui/kit/qt_text.h"

namespace quill::ui {

QString ChangeText(qint64 change, const QLocale& locale) {
  if (change > 0) return u'+' + locale.toString(change);
  if (change == 0) return locale.toString(0);
  return QChar(u'−') + locale.toString(-change);
}

QDateTime ClockTime(std::chrono::local_seconds at) {
  return QDateTime::fromSecsSinceEpoch(at.time_since_epoch().count(), Qt::UTC);
}

std::chrono::local_seconds ClockSeconds(const QDateTime& moment) {
  const QDateTime clock(moment.date(), moment.time(), Qt::UTC);
  return std::chrono::local_seconds(std::chrono::seconds(clock.toSecsSinceEpoch()));
}

QString PointText(const online::PageHistoryEntry& entry, const shell::StringTable& strings,
                  const QLocale& locale) {
  const std::string when = FromQt(locale.toString(ClockTime(entry.at), QLocale::ShortFormat));
  const std::string total = FromQt(locale.toString(static_cast<qlonglong>(entry.total)));
  if (!entry.change) return ToQt(strings.Format("strPagesPoint", {when, total}));
  const std::string change = FromQt(ChangeText(*entry.change, locale));
  return ToQt(
      strings.Format(entry.isDrop ? "strPagesPointDrop" : "strPagesPointChange", {when, total, change}));
}

}  // namespace quill::ui
