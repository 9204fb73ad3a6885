#include "ui/kit/problem_line.h"

#include <QAccessible>
#include <QBoxLayout>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QStyle>

#include "ui/kit/qt_text.h"
#include "ui/kit/wrapped_label.h"

namespace quill::ui {
namespace {

/// Where a widget is in a tree of layouts: the innermost form or column that holds it, and its place there.
struct Spot {
  QLayout* layout = nullptr;
  int index = 0;
};

bool Holds(QLayout* layout, const QWidget* field);

bool Holds(QLayoutItem* item, const QWidget* field) {
  if (item->layout() != nullptr) return Holds(item->layout(), field);
  return item->widget() != nullptr && (item->widget() == field || item->widget()->isAncestorOf(field));
}

bool Holds(QLayout* layout, const QWidget* field) {
  for (int i = 0; i < layout->count(); ++i) {
    if (Holds(layout->itemAt(i), field)) return true;
  }
  return false;
}

bool HasRows(QLayout* layout) {
  auto* box = qobject_cast<QBoxLayout*>(layout);
  return qobject_cast<QFormLayout*>(layout) != nullptr ||
         (box != nullptr && box->direction() == QBoxLayout::TopToBottom);
}

Spot FindSpot(QLayout* layout, const QWidget* field, Spot outer = {}) {
  for (int i = 0; layout != nullptr && i < layout->count(); ++i) {
    QLayoutItem* item = layout->itemAt(i);
    if (!Holds(item, field)) continue;
    const Spot here = HasRows(layout) ? Spot{layout, i} : outer;
    QLayout* inner = item->layout();
    if (inner == nullptr && item->widget() != field) inner = item->widget()->layout();
    return FindSpot(inner, field, here);
  }
  return outer;
}

QLabel* NewIcon(const QWidget& window) {
  auto* icon = new QLabel;
  const int size = window.style()->pixelMetric(QStyle::PM_SmallIconSize);
  icon->setPixmap(window.style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(size));
  icon->setAlignment(Qt::AlignTop);
  return icon;
}

}  // namespace

ProblemLine::ProblemLine(const Problem& problem, QBoxLayout& content) : m_field(problem.field) {
  const QString text = ToQt(problem.text);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins({});
  row->addWidget(NewIcon(*content.parentWidget()));
  row->addWidget(NewWrappedLabel(text), 1);
  Place(content);
  show();
  if (!m_field) return;
  TellScreenReader(text);
  m_field->setFocus();
  RemoveWhenFieldChanges();
}

ProblemLine::~ProblemLine() {
  if (m_field) m_field->setAccessibleDescription(m_oldDescription);
}

void ProblemLine::Remove() {
  if (m_form) {
    m_form->removeRow(this);  // deletes the line
  } else {
    delete this;
  }
}

void ProblemLine::Place(QBoxLayout& content) {
  const Spot spot = m_field ? FindSpot(&content, m_field) : Spot{};
  if (auto* form = qobject_cast<QFormLayout*>(spot.layout)) {
    m_form = form;
    int row = 0;
    QFormLayout::ItemRole role{};
    form->getItemPosition(spot.index, &row, &role);
    form->insertRow(row + 1, QString(), this);
  } else if (auto* column = qobject_cast<QBoxLayout*>(spot.layout)) {
    column->insertWidget(spot.index + 1, this);
  } else {
    content.addWidget(this);
  }
}

void ProblemLine::TellScreenReader(const QString& text) {
  m_oldDescription = m_field->accessibleDescription();
  m_field->setAccessibleDescription(text);
  QAccessibleEvent alert(this, QAccessible::Alert);
  setAccessibleName(text);
  QAccessible::updateAccessibility(&alert);
}

void ProblemLine::RemoveWhenFieldChanges() {
  auto* edit = qobject_cast<QLineEdit*>(m_field);
  if (edit == nullptr) edit = m_field->findChild<QLineEdit*>();  // of a spin box or an editable combo box
  const auto remove = [this] { Remove(); };
  if (edit != nullptr) {
    connect(edit, &QLineEdit::textChanged, this, remove);
  } else if (auto* text = qobject_cast<QPlainTextEdit*>(m_field)) {
    connect(text, &QPlainTextEdit::textChanged, this, remove);
  } else if (auto* combo = qobject_cast<QComboBox*>(m_field)) {
    connect(combo, &QComboBox::currentIndexChanged, this, remove);
  }
}

}  // namespace quill::ui
