#include "ui/windows/dates/letter_list.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <algorithm>

#include "ui/kit/qt_text.h"

namespace quill::ui {
namespace {

constexpr int kLeastRows = 6;
/// The long name of a time zone must not make the window wide: it gets its dots and a tool tip.
constexpr int kExampleCharacters = 16;

enum Column { kLetters, kMeaning, kExample };

}  // namespace

LetterList::LetterList(const shell::StringTable& strings, std::span<const tools::PatternLetter> letters,
                       std::chrono::system_clock::time_point moment) {
  const auto text = [&strings](std::string_view key) { return ToQt(strings.Text(key)); };
  setHeaderLabels({text("strPatternLetters"), text("strPatternMeaning"), text("strPatternExample")});
  setRootIsDecorated(false);
  setUniformRowHeights(true);
  setAllColumnsShowFocus(true);
  setTabKeyNavigation(false);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  for (const tools::PatternLetter& letter : letters) {
    const QString example = ToQt(tools::CheckDatePattern(letter.letters, moment).text);
    auto* row = new QTreeWidgetItem(this, {ToQt(letter.letters), text(letter.textKey), example});
    row->setToolTip(kExample, example);
  }
  header()->setSectionsMovable(false);
  header()->setSectionsClickable(false);
  header()->setSectionResizeMode(kLetters, QHeaderView::ResizeToContents);
  header()->setSectionResizeMode(kMeaning, QHeaderView::ResizeToContents);
  connect(this, &QTreeWidget::itemDoubleClicked, this,
          [this](const QTreeWidgetItem* row) { emit Chosen(row->text(kLetters)); });
}

void LetterList::keyPressEvent(QKeyEvent* event) {
  const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  // With Control it finishes the window, as everywhere.
  if (!isReturn || (event->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) {
    return QTreeWidget::keyPressEvent(event);
  }
  if (const QTreeWidgetItem* row = currentItem()) emit Chosen(row->text(kLetters));
}

int LetterList::HeightOf(int rows) const {
  const int row = topLevelItemCount() > 0 ? rowHeight(indexFromItem(topLevelItem(0))) : 0;
  return header()->sizeHint().height() + rows * row + 2 * frameWidth();
}

int LetterList::WidthOfColumns() const {
  const int example = fontMetrics().averageCharWidth() * kExampleCharacters;
  return sizeHintForColumn(kLetters) + sizeHintForColumn(kMeaning) + example;
}

QSize LetterList::sizeHint() const {
  const int bar = verticalScrollBar()->sizeHint().width();
  return {WidthOfColumns() + bar + 2 * frameWidth(), HeightOf(topLevelItemCount())};
}

QSize LetterList::minimumSizeHint() const {
  return {sizeHint().width(), HeightOf(std::min(kLeastRows, topLevelItemCount()))};
}

}  // namespace quill::ui
