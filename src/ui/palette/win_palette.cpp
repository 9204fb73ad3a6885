#include "ui/palette/win_palette.h"

#include <QAccessible>
#include <QApplication>
#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QScreen>
#include <QScrollBar>
#include <QStackedLayout>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/kit/qt_text.h"
#include "ui/palette/palette_delegate.h"

namespace quill::ui {
namespace {

constexpr int kVisibleRows = 11;
constexpr int kWidthInCharacters = 92;
constexpr int kMostTypedLetters = 100;  // what the search looks at

}  // namespace

WinPalette::WinPalette(const shell::StringTable& strings, std::vector<PaletteEntry> entries, Recency recency,
                       OnChosen onChosen)
    // A dialog and not a tool window: window managers give those the keyboard, and macOS hides tool windows
    // of an application that is not in front.
    : QFrame(nullptr, Qt::Dialog | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint),
      m_strings(strings),
      m_recency(std::move(recency)),
      m_onChosen(std::move(onChosen)),
      m_model(strings, std::move(entries)),
      m_field(new QLineEdit(this)),
      m_list(new QListView(this)),
      m_nothing(new QLabel(this)),
      m_status(new QLabel(this)) {
  setObjectName(QStringLiteral("palette"));
  setAttribute(Qt::WA_QuitOnClose, false);
  setFrameShape(QFrame::StyledPanel);
  m_field->setMaxLength(kMostTypedLetters);
  m_field->setClearButtonEnabled(true);
  m_field->installEventFilter(this);
  setFocusProxy(m_field);
  connect(m_field, &QLineEdit::textChanged, this, &WinPalette::Filter);
  BuildList();
  Lay();
  ReadTexts();
  Filter();
}

void WinPalette::BuildList() {
  m_list->setModel(&m_model);
  m_list->setItemDelegate(new PaletteDelegate(m_list));
  m_list->setUniformItemSizes(true);
  m_list->setFocusPolicy(Qt::NoFocus);
  m_list->setFrameShape(QFrame::NoFrame);
  m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
  m_list->setSelectionMode(QAbstractItemView::SingleSelection);
  connect(m_list, &QListView::clicked, this, &WinPalette::Choose);
  connect(m_list->selectionModel(), &QItemSelectionModel::currentChanged, this, &WinPalette::TellCurrent);
}

void WinPalette::Lay() {
  QFont large = m_field->font();
  large.setPointSizeF(large.pointSizeF() * 1.25);
  m_field->setFont(large);
  const int margin = fontMetrics().height() / 2;
  m_field->setTextMargins(margin / 2, margin / 2, margin / 2, margin / 2);
  m_nothing->setAlignment(Qt::AlignCenter);
  m_nothing->setAutoFillBackground(true);
  m_nothing->setBackgroundRole(QPalette::Base);
  m_nothing->setForegroundRole(QPalette::Text);
  m_status->setTextFormat(Qt::PlainText);
  m_status->setContentsMargins(margin, margin / 2, margin, margin / 2);

  m_stack = new QStackedLayout;
  m_stack->addWidget(m_list);
  m_stack->addWidget(m_nothing);
  auto* fieldRoom = new QVBoxLayout;
  fieldRoom->setContentsMargins(margin, margin, margin, margin);
  fieldRoom->addWidget(m_field);
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(0, 0, 0, 0);
  all->setSpacing(0);
  all->addLayout(fieldRoom);
  all->addLayout(m_stack, 1);
  all->addWidget(m_status);
}

void WinPalette::ReadTexts() {
  const auto text = [this](std::string_view key) { return ToQt(m_strings.Text(key)); };
  setWindowTitle(text("strPaletteName"));
  m_field->setAccessibleName(text("strPaletteName"));
  m_field->setPlaceholderText(text("strPalettePlaceholder"));
  m_list->setAccessibleName(text("strPaletteActions"));
  m_nothing->setText(text("strPaletteNothing"));
  Tell({});
}

void WinPalette::SetEntries(std::vector<PaletteEntry> entries) {
  m_model.SetEntries(std::move(entries));
  m_model.SetRecent(m_recency());
  ReadTexts();
  Filter();
}

void WinPalette::SetProblems(const PaletteProblems& problems) {
  m_model.SetProblems(problems);
  // What can run stands first; a row that the user has moved to stays where it is.
  if (m_list->currentIndex().row() <= 0) return Filter();
  TellCurrent();
}

void WinPalette::Open() {
  m_model.SetRecent(m_recency());
  m_field->clear();
  Filter();
  Place();
  // Behind a window that waits for an answer it would be dead, and not even Escape would close it. Changing
  // this takes effect when a window is shown.
  if (!isVisible()) {
    const bool blocked = QApplication::activeModalWidget() != nullptr;
    setWindowModality(blocked ? Qt::ApplicationModal : Qt::NonModal);
  }
  show();
  raise();
  activateWindow();
  m_field->setFocus(Qt::ActiveWindowFocusReason);
}

void WinPalette::Place() {
  const QScreen* screen = QGuiApplication::screenAt(QCursor::pos());
  if (screen == nullptr) screen = QGuiApplication::primaryScreen();
  const QRect room = screen->availableGeometry();
  const int rowHeight = m_list->sizeHintForRow(0);
  const int width = fontMetrics().averageCharWidth() * kWidthInCharacters;
  const int height = layout()->sizeHint().height() - m_stack->sizeHint().height() + 2 * frameWidth() +
                     kVisibleRows * std::max(rowHeight, fontMetrics().height());
  const QSize size(std::min(width, room.width() * 9 / 10), std::min(height, room.height() * 9 / 10));
  const int top = room.top() + std::max(0, room.height() / 3 - size.height() / 2);
  setGeometry(QRect(QPoint(room.left() + (room.width() - size.width()) / 2, top), size));
}

void WinPalette::Filter() {
  m_model.Filter(m_field->text());
  m_stack->setCurrentIndex(m_model.rowCount() > 0 ? 0 : 1);
  m_list->scrollToTop();
  MoveTo(0);
  TellCurrent();
}

bool WinPalette::event(QEvent* event) {
  if (event->type() == QEvent::WindowDeactivate) close();
  return QFrame::event(event);
}

bool WinPalette::eventFilter(QObject* watched, QEvent* event) {
  if (watched != m_field || event->type() != QEvent::KeyPress) return QFrame::eventFilter(watched, event);
  const auto* key = static_cast<QKeyEvent*>(event);
  return HandleKey(key->key(), key->modifiers() & ~Qt::KeypadModifier) || QFrame::eventFilter(watched, event);
}

bool WinPalette::HandleKey(int key, Qt::KeyboardModifiers modifiers) {
  const int row = m_list->currentIndex().row();
  const int last = m_model.rowCount() - 1;
  if (modifiers == Qt::ControlModifier) {
    if (key == Qt::Key_Home) return MoveTo(0), true;
    if (key == Qt::Key_End) return MoveTo(last), true;
    return false;
  }
  if (modifiers != Qt::NoModifier) return false;
  const int page = std::max(1, m_list->viewport()->height() / std::max(1, m_list->sizeHintForRow(0)) - 1);
  switch (key) {
    case Qt::Key_Up:
      return MoveTo(row > 0 ? row - 1 : last), true;
    case Qt::Key_Down:
      return MoveTo(row < last ? row + 1 : 0), true;
    case Qt::Key_PageUp:
      return MoveTo(std::max(0, row - page)), true;
    case Qt::Key_PageDown:
      return MoveTo(std::min(last, row + page)), true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return Choose(m_list->currentIndex()), true;
    case Qt::Key_Escape:
      return close(), true;
    default:
      return false;
  }
}

void WinPalette::MoveTo(int row) {
  m_list->setCurrentIndex(m_model.index(row));
}

void WinPalette::Choose(const QModelIndex& index) {
  // A second Return of a fast hand arrives when the window has gone already.
  if (!index.isValid() || !isVisible()) return;
  const PaletteEntry entry = m_model.At(index);
  if (!entry.problem.isEmpty()) return Tell(entry.problem);
  close();
  m_onChosen(*entry.row, entry.argument);
}

/// A screen reader follows the keyboard, which stays in the field: it is told which row that moves.
void WinPalette::TellCurrent() {
  Tell({});
  const QModelIndex current = m_list->currentIndex();
  const QString spoken =
      current.isValid() ? current.data(Qt::AccessibleTextRole).toString() : m_nothing->text();
  if (m_field->accessibleDescription() == spoken) return;
  m_field->setAccessibleDescription(spoken);
  if (!current.isValid() || !isVisible()) return;
  QAccessibleEvent event(m_list, QAccessible::Focus);
  event.setChild(current.row());
  QAccessible::updateAccessibility(&event);
}

/// Shows a reason in the status line; without one, the keys.
void WinPalette::Tell(const QString& text) {
  m_status->setText(text.isEmpty() ? ToQt(m_strings.Text("strPaletteHint")) : text);
  m_status->setForegroundRole(text.isEmpty() ? QPalette::PlaceholderText : QPalette::WindowText);
  if (text.isEmpty()) return;
  QAccessibleEvent event(m_status, QAccessible::Alert);
  QAccessible::updateAccessibility(&event);
}

}  // namespace quill::ui
