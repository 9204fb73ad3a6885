#include "ui/windows/text/win_word_count.h"

#include <QHeaderView>
#include <QPushButton>
#include <QShortcut>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/kit/page_mnemonics.h"
#include "ui/kit/qt_text.h"
#include "ui/kit/wrapped_label.h"
#include "ui/windows/plain_text_view.h"
#include "ui/windows/text/quiet_note.h"

namespace quill::ui {
namespace {

/// Else the window of two figures is narrower than its title.
constexpr int kLeastCharacters = 36;

enum Column { kLabel, kNumber };

/// As high as its rows and wide enough for them, so that nothing has to be scrolled.
class CountList final : public QTreeWidget {
 public:
  QSize sizeHint() const override {
    const int row = topLevelItemCount() > 0 ? rowHeight(indexFromItem(topLevelItem(0))) : 0;
    const int gap = fontMetrics().averageCharWidth() * 6;
    const int columns = sizeHintForColumn(kLabel) + gap + sizeHintForColumn(kNumber) + 2 * frameWidth();
    return {std::max(columns, fontMetrics().averageCharWidth() * kLeastCharacters),
            row * topLevelItemCount() + 2 * frameWidth()};
  }
  QSize minimumSizeHint() const override { return sizeHint(); }
};

}  // namespace

MWinWordCount::MWinWordCount(const shell::StringTable& strings, const shell::CountRequest& request, Done done)
    : AnswerWindow(strings, request.titleKey, std::move(done)), m_rows(request.rows), m_note(new QuietNote) {
  if (m_rows.empty()) {
    QLabel* nothing = NewWrappedLabel(Text("strCountNothing"));
    nothing->setMinimumWidth(fontMetrics().averageCharWidth() * kLeastCharacters);
    content().addWidget(nothing);
  } else {
    content().addWidget(m_list = NewList(), 1);
  }
  content().addWidget(m_note);
  OnlyClose();
  QPushButton& copy = AddButton("strCopy");
  copy.setAutoDefault(false);
  copy.setEnabled(!m_rows.empty());
  connect(&copy, &QPushButton::clicked, this, [this] { Copy(m_rows); });
  auto* copyKey = new QShortcut(QKeySequence::Copy, this);
  connect(copyKey, &QShortcut::activated, this, [this] { Copy(SelectedRows()); });
  AssignMnemonics(buttons(), {});
}

QTreeWidget* MWinWordCount::NewList() {
  auto* list = new CountList;
  list->setAccessibleName(windowTitle());
  list->setColumnCount(2);
  list->setHeaderHidden(true);
  list->setRootIsDecorated(false);
  list->setUniformRowHeights(true);
  list->setAllColumnsShowFocus(true);
  list->setAlternatingRowColors(true);
  list->setSelectionMode(QAbstractItemView::ExtendedSelection);
  list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  for (const tools::CountRow& row : m_rows) {
    const QString number = locale().toString(static_cast<qlonglong>(row.value));
    auto* item = new QTreeWidgetItem(list, {Text(row.key), number});
    // Units stand under units, in a mirrored window, too.
    item->setTextAlignment(kNumber, Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter);
  }
  list->header()->setStretchLastSection(false);
  list->header()->setSectionResizeMode(kLabel, QHeaderView::Stretch);
  list->header()->setSectionResizeMode(kNumber, QHeaderView::ResizeToContents);
  return list;
}

std::vector<tools::CountRow> MWinWordCount::SelectedRows() const {
  std::vector<tools::CountRow> selected;
  for (std::size_t i = 0; m_list != nullptr && i < m_rows.size(); ++i) {
    if (m_list->topLevelItem(static_cast<int>(i))->isSelected()) selected.push_back(m_rows[i]);
  }
  return selected.empty() ? m_rows : selected;
}

void MWinWordCount::Copy(const std::vector<tools::CountRow>& rows) {
  if (rows.empty()) return;
  CopyText(ToQt(tools::TextOf(rows, [this](std::string_view key) { return FromQt(Text(key)); })));
  m_note->Tell(Text("strCopied"));
}

Result<std::monostate, Problem> MWinWordCount::Read() {
  return std::monostate{};
}

}  // namespace quill::ui
