#include "ui/windows/dates/win_date_time_format.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "tools/date_pattern.h"
#include "ui/kit/page_mnemonics.h"
#include "ui/windows/dates/pattern_box.h"

namespace quill::ui {
namespace {

constexpr std::string_view kCommonDates[] = {
    "yyyy-MM-dd",  "dd.MM.yyyy",   "d.M.yyyy",          "dd/MM/yyyy", "MM/dd/yyyy",
    "d MMMM yyyy", "MMMM d, yyyy", "EEEE, d MMMM yyyy", "EEE d MMM",  "yyyy/MM/dd",
};

constexpr std::string_view kCommonTimes[] = {
    "HH:mm:ss", "HH:mm", "h:mm a", "h:mm:ss a", "HH.mm", "HH:mm:ss.SSS", "HH:mm z", "HH:mm:ssxxx",
};

}  // namespace

MWinDateTimeFormat::MWinDateTimeFormat(const shell::StringTable& strings,
                                       const shell::DateTimeFormatRequest& request, Done done)
    : AnswerWindow(strings, "titleDateTimeFormat", std::move(done)) {
  m_date = new PatternBox(strings,
                          {"strPatternDateField", "strPatternDateHelp", request.present.date, kCommonDates,
                           tools::DatePatternLetters()},
                          request.now);
  m_time = new PatternBox(strings,
                          {"strPatternTimeField", "strPatternTimeHelp", request.present.time, kCommonTimes,
                           tools::TimePatternLetters()},
                          request.now);
  auto* sides = new QHBoxLayout;
  sides->setSpacing(fontMetrics().averageCharWidth() * 3);
  sides->addWidget(m_date, 1);
  sides->addWidget(m_time, 1);
  content().addLayout(sides, 1);
  AssignMnemonics(*this, {});
  m_date->Begin();
}

Result<shell::DateTimeFormats, Problem> MWinDateTimeFormat::Read() {
  shell::DateTimeFormats formats{m_date->Pattern(), m_time->Pattern()};
  if (formats.date.empty()) return Refuse(m_date->field(), "msgInputDateFormat");
  if (formats.time.empty()) return Refuse(m_time->field(), "msgInputTimeFormat");
  return formats;
}

}  // namespace quill::ui
