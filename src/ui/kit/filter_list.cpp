#include "ui/kit/filter_list.h"

#include <QAccessible>
#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMetaMethod>
#include <QStackedLayout>
#include <algorithm>

namespace quill::ui {
namespace {

constexpr int kMostTypedLetters = 200;

}  // namespace

FilterList::FilterList(FilteredModel& model, QAbstractItemDelegate* delegate, Click click, const Texts& texts)
    : m_model(model),
      m_field(new QLineEdit),
      m_view(new QListView),
      m_reason(new QLabel),
      m_nothing(texts.nothing),
      m_notFound(texts.notFound) {
  m_field->setMaxLength(kMostTypedLetters);
  m_field->setClearButtonEnabled(true);
  m_field->installEventFilter(this);
  connect(m_field, &QLineEdit::textChanged, this, &FilterList::Filter);
  BuildView(delegate, click);
  Lay(texts);
  setFocusProxy(m_field);
  Refresh(0);
}

void FilterList::BuildView(QAbstractItemDelegate* delegate, Click click) {
  delegate->setParent(m_view);
  m_view->setModel(&m_model);
  m_view->setItemDelegate(delegate);
  m_view->setUniformItemSizes(true);
  m_view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  m_view->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
  m_view->setSelectionMode(QAbstractItemView::SingleSelection);
  m_view->installEventFilter(this);
  m_view->viewport()->installEventFilter(this);
  connect(m_view, click == Click::Single ? &QListView::clicked : &QListView::doubleClicked, this,
          &FilterList::Choose);
  connect(m_view->selectionModel(), &QItemSelectionModel::currentChanged, this, [this] {
    TellCurrent();
    emit CurrentChanged();
  });
}

void FilterList::Lay(const Texts& texts) {
  m_field->setPlaceholderText(texts.filter);
  m_field->setAccessibleName(texts.filter);
  m_view->setAccessibleName(texts.list);
  m_reason->setTextFormat(Qt::PlainText);
  m_reason->setWordWrap(true);
  m_reason->setAlignment(Qt::AlignCenter);
  m_reason->setMargin(fontMetrics().lineSpacing());
  m_reason->setFrameStyle(m_view->frameStyle());
  m_reason->setAutoFillBackground(true);
  m_reason->setBackgroundRole(QPalette::Base);
  m_reason->setForegroundRole(QPalette::Text);
  m_stack = new QStackedLayout;
  m_stack->addWidget(m_view);
  m_stack->addWidget(m_reason);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins({});
  column->addWidget(m_field);
  column->addLayout(m_stack, 1);
}

int FilterList::Current() const {
  return m_model.RowAt(m_view->currentIndex());
}

void FilterList::SetCurrent(int row) {
  const QModelIndex wanted = m_model.IndexOf(row);
  m_view->setCurrentIndex(wanted.isValid() ? wanted : m_model.index(0));
  m_view->scrollTo(m_view->currentIndex());
}

bool FilterList::ClearFilter() {
  if (m_field->text().isEmpty()) return false;
  m_field->clear();
  return true;
}

void FilterList::Refresh(int current) {
  m_before = current;
  ShowListOrReason();
  SetCurrent(current);
  TellCurrent();
  emit CurrentChanged();
}

void FilterList::Filter() {
  const bool filtered = !m_field->text().isEmpty();
  if (filtered && !m_filtered) m_before = Current();
  m_filtered = filtered;
  m_model.Filter(m_field->text());
  ShowListOrReason();
  m_view->scrollToTop();
  if (filtered) {
    SetCurrent(m_model.RowAt(m_model.index(0)));
  } else {
    SetCurrent(m_home >= 0 ? m_home : m_before);
  }
  TellCurrent();
  emit CurrentChanged();
}

void FilterList::ShowListOrReason() {
  m_reason->setText(m_model.AllRows() == 0 ? m_nothing : m_notFound);
  m_stack->setCurrentIndex(m_model.rowCount() > 0 ? 0 : 1);
}

bool FilterList::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ContextMenu) return TakeMenuKey(watched, *event);
  if (event->type() == QEvent::KeyPress) {
    auto* key = static_cast<QKeyEvent*>(event);
    if (watched == m_field) return TakeFieldKey(*key);
    if (watched == m_view) return TakeViewKey(*key);
  }
  return QWidget::eventFilter(watched, event);
}

bool FilterList::TakeFieldKey(const QKeyEvent& key) {
  const Qt::KeyboardModifiers modifiers = key.modifiers() & ~Qt::KeypadModifier;
  const int place = m_view->currentIndex().row();
  const int last = m_model.rowCount() - 1;
  const bool toEnd =
      modifiers == Qt::ControlModifier || (modifiers == Qt::NoModifier && m_field->text().isEmpty());
  if (toEnd && key.key() == Qt::Key_Home) return MoveTo(0), true;
  if (toEnd && key.key() == Qt::Key_End) return MoveTo(last), true;
  if (modifiers != Qt::NoModifier) return false;
  const int page = std::max(1, m_view->viewport()->height() / std::max(1, m_view->sizeHintForRow(0)) - 1);
  switch (key.key()) {
    case Qt::Key_Up:
      return MoveTo(place - 1), true;
    case Qt::Key_Down:
      return MoveTo(place + 1), true;
    case Qt::Key_PageUp:
      return MoveTo(place - page), true;
    case Qt::Key_PageDown:
      return MoveTo(place + page), true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return Choose(m_view->currentIndex()), true;
    default:
      return false;
  }
}

/// What is typed in the list goes to the field, which takes the keyboard for the rest.
bool FilterList::TakeViewKey(QKeyEvent& key) {
  const Qt::KeyboardModifiers modifiers = key.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
  if (modifiers != Qt::NoModifier) return false;
  if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) {
    return Choose(m_view->currentIndex()), true;
  }
  const bool isLetter = !key.text().isEmpty() && key.text().at(0).isPrint() && key.key() != Qt::Key_Space;
  if (!isLetter && key.key() != Qt::Key_Backspace) return false;
  m_field->setFocus(Qt::OtherFocusReason);
  m_field->end(false);
  QApplication::sendEvent(m_field, &key);
  return true;
}

/// The menu key means the current row also from the field, unless something is marked there.
bool FilterList::TakeMenuKey(QObject* watched, QEvent& event) {
  if (!isSignalConnected(QMetaMethod::fromSignal(&FilterList::MenuWanted))) return false;
  const auto& wanted = static_cast<const QContextMenuEvent&>(event);
  if (wanted.reason() == QContextMenuEvent::Keyboard) {
    if (watched == m_field && m_field->hasSelectedText()) return false;
    const QRect row = m_view->visualRect(m_view->currentIndex());
    if (Current() >= 0) emit MenuWanted(m_view->viewport()->mapToGlobal(row.center()));
    return true;
  }
  if (watched != m_view->viewport()) return false;
  const QModelIndex clicked = m_view->indexAt(wanted.pos());
  if (!clicked.isValid()) return true;
  m_view->setCurrentIndex(clicked);
  emit MenuWanted(wanted.globalPos());
  return true;
}

void FilterList::MoveTo(int place) {
  const int last = m_model.rowCount() - 1;
  m_view->setCurrentIndex(m_model.index(std::clamp(place, 0, std::max(0, last))));
}

void FilterList::Choose(const QModelIndex& index) {
  const int row = m_model.RowAt(index);
  if (row >= 0) emit Chosen(row);
}

/// A screen reader follows the keyboard, which stays in the field: it is told which row that moves.
void FilterList::TellCurrent() {
  const QModelIndex current = m_view->currentIndex();
  const QString spoken =
      current.isValid() ? current.data(Qt::AccessibleTextRole).toString() : m_reason->text();
  if (m_field->accessibleDescription() == spoken) return;
  m_field->setAccessibleDescription(spoken);
  if (!current.isValid() || !isVisible()) return;
  QAccessibleEvent event(m_view, QAccessible::Focus);
  event.setChild(current.row());
  QAccessible::updateAccessibility(&event);
}

}  // namespace quill::ui
