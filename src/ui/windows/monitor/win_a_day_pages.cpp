#include "ui/windows/monitor/win_a_day_pages.h"

#include <QHeaderView>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "ui/kit/page_mnemonics.h"
#include "ui/kit/qt_text.h"
#include "ui/kit/wrapped_label.h"
#include "ui/windows/monitor/page_words.h"

namespace quill::ui {
namespace {

enum Column { kDay, kPages, kChange, kColumns };

constexpr int kWidthInCharacters = 64;
constexpr int kShownRows = 14;

}  // namespace

MWinADayPages::MWinADayPages(const shell::StringTable& strings, const std::vector<online::DayPages>& days,
                             std::chrono::local_days today, Done done)
    : AnswerWindow(strings, "titleADayPages", std::move(done)) {
  OnlyClose();
  if (days.empty()) {
    QLabel* nothing = NewWrappedLabel(Text("strPagesNoHistory"));
    nothing->setMinimumWidth(fontMetrics().averageCharWidth() * kWidthInCharacters / 2);
    content().addWidget(nothing);
    AssignMnemonics(buttons(), {});
    return;
  }
  auto* list = new QTreeWidget;
  list->setAccessibleName(windowTitle());
  list->setHeaderLabels({Text("strDayPagesDay"), Text("strDayPagesPages"), Text("strDayPagesChange")});
  list->setRootIsDecorated(false);
  list->setUniformRowHeights(true);
  list->setAllColumnsShowFocus(true);
  list->setAlternatingRowColors(true);
  for (const online::DayPages& one : days) {
    QString day = locale().toString(ClockTime(one.day).date(), QLocale::LongFormat);
    if (one.day == today) day = Format("strDayPagesToday", {FromQt(day)});
    auto* item = new QTreeWidgetItem(list, {day, locale().toString(static_cast<qlonglong>(one.total)),
                                            one.change ? ChangeText(*one.change, locale()) : QString()});
    for (const int column : {kPages, kChange})
      item->setTextAlignment(column, Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter);
  }
  for (const int column : {kPages, kChange})
    list->headerItem()->setTextAlignment(column, Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter);
  list->header()->setStretchLastSection(false);
  list->header()->setSectionsMovable(false);
  list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  list->header()->setSectionResizeMode(kDay, QHeaderView::Stretch);
  list->setCurrentItem(list->topLevelItem(0));
  const int row = list->sizeHintForRow(0);
  list->setMinimumSize(list->fontMetrics().averageCharWidth() * kWidthInCharacters,
                       row * kShownRows / 2 + list->header()->sizeHint().height());
  content().addWidget(list, 1);
  AssignMnemonics(buttons(), {});
  resize(width(),
         row * (kShownRows + 1) + list->header()->sizeHint().height() + buttons().sizeHint().height() * 2);
}

}  // namespace quill::ui
