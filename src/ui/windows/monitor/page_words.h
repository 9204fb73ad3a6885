#pragma once
#include <QDateTime>
#include <QLocale>
#include <QString>

#include "online/page_history.h"
#include "shell/string_table.h"

namespace quill::ui {

/// A change with its sign, which for a smaller number is a minus and no hyphen.
QString ChangeText(qint64 change, const QLocale& locale);

/// A day and time of the history, as it stands on a clock.
QDateTime ClockTime(std::chrono::local_seconds at);

/// The day and time of a clock, as the history has it.
std::chrono::local_seconds ClockSeconds(const QDateTime& moment);

/// A point of the history in words: when, how many pages, the change.
QString PointText(const online::PageHistoryEntry& entry, const shell::StringTable& strings,
                  const QLocale& locale);

}  // namespace quill::ui
