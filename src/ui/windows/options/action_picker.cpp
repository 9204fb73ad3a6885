#include "ui/windows/options/action_picker.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/kit/qt_text.h"
#include "ui/palette/palette_delegate.h"

namespace quill::ui {
namespace {

constexpr int kWidthInCharacters = 64;
constexpr int kHeightInLines = 14;

/// Every action but those that stand for many things: a favourite cannot be told by its action alone.
std::vector<PaletteEntry> AllActions(const shell::StringTable& strings,
                                     const std::function<QString(const shell::CommandRow&)>& keyOf) {
  std::vector<PaletteEntry> entries;
  for (const shell::CommandRow& row : shell::CommandTable()) {
    if (row.place == shell::Place::Dynamic) continue;
    entries.push_back({&row,
                       std::nullopt,
                       ToQt(strings.Text(row.titleKey)),
                       ToQt(strings.Text(shell::GroupTitleKey(row.group))),
                       keyOf(row),
                       {}});
  }
  return entries;
}

}  // namespace

ActionPicker::ActionPicker(const shell::StringTable& strings,
                           const std::function<QString(const shell::CommandRow&)>& keyOf, Done done)
    : AnswerWindow(strings, "titleOptionsPickAction", std::move(done)),
      m_model(strings, AllActions(strings, keyOf)),
      m_field(new QLineEdit),
      m_list(new QListView) {
  m_field->setPlaceholderText(Text("strPalettePlaceholder"));
  m_field->setAccessibleName(Text("strPaletteName"));
  m_field->setClearButtonEnabled(true);
  m_field->installEventFilter(this);
  connect(m_field, &QLineEdit::textChanged, this, [this] { Filter(); });
  m_list->setModel(&m_model);
  m_list->setItemDelegate(new PaletteDelegate(m_list));
  m_list->setUniformItemSizes(true);
  m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
  m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  m_list->setAccessibleName(Text("strPaletteActions"));
  m_list->setMinimumSize(m_list->fontMetrics().averageCharWidth() * kWidthInCharacters,
                         m_list->fontMetrics().lineSpacing() * kHeightInLines);
  connect(m_list, &QListView::doubleClicked, this,
          [this](const QModelIndex& index) { FinishWith(m_model.At(index).row); });
  SetOkText("strOptionsChooseKey");
  content().addWidget(m_field);
  content().addWidget(m_list, 1);
  Filter();
}

Result<const shell::CommandRow*, Problem> ActionPicker::Read() {
  const QModelIndex current = m_list->currentIndex();
  if (!current.isValid()) return Refuse(m_field, "strPaletteNothing");
  return m_model.At(current).row;
}

void ActionPicker::Filter() {
  m_model.Filter(m_field->text());
  m_list->scrollToTop();
  MoveTo(0);
}

/// A screen reader follows the keyboard, which stays in the field: the row is what the field is described by.
void ActionPicker::MoveTo(int row) {
  m_list->setCurrentIndex(m_model.index(row));
  const QModelIndex current = m_list->currentIndex();
  m_field->setAccessibleDescription(current.isValid() ? current.data(Qt::AccessibleTextRole).toString()
                                                      : Text("strPaletteNothing"));
}

bool ActionPicker::eventFilter(QObject* watched, QEvent* event) {
  if (watched == m_field && event->type() == QEvent::KeyPress) {
    const auto* key = static_cast<QKeyEvent*>(event);
    if ((key->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier && Move(key->key())) return true;
  }
  return AnswerWindow::eventFilter(watched, event);
}

bool ActionPicker::Move(int key) {
  const int last = m_model.rowCount() - 1;
  const int row = m_list->currentIndex().row();
  const int page = std::max(1, m_list->viewport()->height() / std::max(1, m_list->sizeHintForRow(0)) - 1);
  switch (key) {
    case Qt::Key_Up:
      return MoveTo(std::max(0, row - 1)), true;
    case Qt::Key_Down:
      return MoveTo(std::min(last, row + 1)), true;
    case Qt::Key_PageUp:
      return MoveTo(std::max(0, row - page)), true;
    case Qt::Key_PageDown:
      return MoveTo(std::min(last, row + page)), true;
    default:
      return false;
  }
}

}  // namespace quill::ui
