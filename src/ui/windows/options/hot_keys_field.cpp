#include "ui/windows/options/hot_keys_field.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStyle>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "ui/kit/key_text.h"
#include "ui/kit/qt_text.h"
#include "ui/kit/window_place.h"
#include "ui/kit/wrapped_label.h"
#include "ui/windows/options/action_picker.h"
#include "ui/windows/options/key_recorder.h"

namespace quill::ui {
namespace {

using platform::HotKeyProblem;
using platform::KeyCombination;

enum Column { kAction, kKey, kState, kColumns };

constexpr int kVisibleLines = 7;
constexpr int kAdviceLines = 2;

constexpr std::pair<HotKeyProblem, const char*> kStates[] = {
    {HotKeyProblem::Taken, "strOptionsKeyTaken"},
    {HotKeyProblem::NoSuchKey, "strOptionsKeyNoSuchKey"},
    {HotKeyProblem::NotSupported, "strOptionsKeyNotSupported"},
    {HotKeyProblem::Refused, "strOptionsKeyRefused"},
    {HotKeyProblem::SystemError, "strOptionsKeySystemError"}};

}  // namespace

HotKeysField::HotKeysField(OptionsDesk& desk) : SettingField(desk, "HotKeys") {
  BuildTable();
  BuildEditor();
  BuildButtons();
  SetControl(m_table);
  Refresh();
}

HotKeysField::~HotKeysField() {
  if (m_picker) m_picker->close();
}

void HotKeysField::BuildTable() {
  m_table = new QTableWidget(0, kColumns);
  m_table->setHorizontalHeaderLabels(
      {Text("strOptionsKeyAction"), Text("strOptionsKeyKey"), Text("strOptionsKeyState")});
  m_table->setAccessibleName(Text("strOptionsHotKeys"));
  m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
  m_table->setSelectionMode(QAbstractItemView::SingleSelection);
  m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
  m_table->setTabKeyNavigation(false);
  m_table->setShowGrid(false);
  m_table->setWordWrap(false);
  m_table->verticalHeader()->hide();
  m_table->verticalHeader()->setDefaultSectionSize(fontMetrics().lineSpacing() * 3 / 2);
  QHeaderView* header = m_table->horizontalHeader();
  header->setDefaultAlignment(Qt::AlignLeading | Qt::AlignVCenter);
  header->setHighlightSections(false);
  header->setSectionsClickable(false);
  header->setSectionResizeMode(kAction, QHeaderView::Stretch);
  header->setSectionResizeMode(kKey, QHeaderView::ResizeToContents);
  header->setSectionResizeMode(kState, QHeaderView::ResizeToContents);
  m_table->setMinimumHeight(m_table->verticalHeader()->defaultSectionSize() * kVisibleLines +
                            header->sizeHint().height());
  m_table->installEventFilter(this);
  connect(m_table, &QTableWidget::currentCellChanged, this, [this](int index) { Select(index); });
  connect(m_table, &QTableWidget::cellDoubleClicked, this, [this] { m_recorder->Record(); });
  column().addWidget(m_table, 1);
}

void HotKeysField::BuildEditor() {
  KeyRecorder::Handlers handlers;
  handlers.onKeys = [this](const KeyCombination& keys) { Assign(keys); };
  handlers.onRemoved = [this] { Remove(); };
  handlers.onRefused = [this](const QString& reason) { Tell(reason); };
  handlers.onListening = [this] { Advise(); };
  m_recorder = new KeyRecorder(desk().strings(), std::move(handlers));
  auto* label = new QLabel(Text("strOptionsKeyOfAction"));
  label->setBuddy(m_recorder);
  m_default = NewButton("strOptionsKeyDefault", &HotKeysField::UseDefault);
  m_takeOver = NewButton("strOptionsKeyTakeOver", &HotKeysField::TakeOver);
  m_advice = NewWrappedLabel({});
  m_advice->setAlignment(Qt::AlignLeading | Qt::AlignTop);
  m_advice->setMinimumHeight(fontMetrics().lineSpacing() * kAdviceLines);

  auto* row = new QHBoxLayout;
  row->addWidget(label);
  row->addWidget(m_recorder, 1);
  row->addWidget(m_default);
  column().addLayout(row);
  auto* second = new QHBoxLayout;
  second->addWidget(m_advice, 1);
  second->addWidget(m_takeOver, 0, Qt::AlignTop);
  column().addLayout(second);
}

void HotKeysField::BuildButtons() {
  auto* row = new QHBoxLayout;
  row->addWidget(NewButton("strOptionsKeyAdd", &HotKeysField::PickAction));
  row->addStretch(1);
  m_allDefaults = NewButton("strOptionsKeyAllDefaults", &HotKeysField::UseAllDefaults);
  row->addWidget(m_allDefaults);
  column().addLayout(row);
}

QPushButton* HotKeysField::NewButton(std::string_view key, void (HotKeysField::*onClicked)()) {
  auto* button = new QPushButton(Text(key), this);
  button->setAutoDefault(false);
  connect(button, &QPushButton::clicked, this, onClicked);
  return button;
}

bool HotKeysField::eventFilter(QObject* watched, QEvent* event) {
  if (watched != m_table || event->type() != QEvent::KeyPress)
    return SettingField::eventFilter(watched, event);
  switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F2:
      m_recorder->Record();
      return true;
    case Qt::Key_Backspace:
    case Qt::Key_Delete:
      Remove();
      return true;
    default:
      return SettingField::eventFilter(watched, event);
  }
}

void HotKeysField::Show(const std::string& text) {
  Fill(text);
}

void HotKeysField::Fill(const std::string& setting) {
  m_lines = HotKeyLines(setting, desk().facts().hotKeys, m_touched);
  const QSignalBlocker quiet(m_table);
  m_table->setRowCount(static_cast<int>(m_lines.size()));
  int index = 0, selected = 0;
  for (const HotKeyLine& line : m_lines) {
    if (line.row == m_selected) selected = index;
    FillLine(index++, line);
  }
  m_selected = m_lines.empty() ? nullptr : m_lines[static_cast<std::size_t>(selected)].row;
  m_table->setCurrentCell(selected, kAction);
  m_allDefaults->setEnabled(!setting.empty());
  ShowSelected();
}

void HotKeysField::FillLine(int index, const HotKeyLine& line) {
  const QString cells[kColumns] = {
      Title(*line.row), line.keys ? HotKeyText(*line.keys) : Text("strOptionsNoKey"), StateText(line)};
  for (int i = 0; i < kColumns; ++i) {
    QTableWidgetItem* item = m_table->item(index, i);
    if (item == nullptr) m_table->setItem(index, i, item = new QTableWidgetItem);
    item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
    item->setText(cells[i]);
  }
  const bool isTrouble = line.problem != HotKeyProblem::None;
  QTableWidgetItem* state = m_table->item(index, kState);
  state->setIcon(isTrouble ? style()->standardIcon(QStyle::SP_MessageBoxWarning) : QIcon());
  state->setToolTip(isTrouble ? HotKeyProblemText(desk().strings(), *line.keys, line.problem, line.detail)
                              : QString());
}

QString HotKeysField::StateText(const HotKeyLine& line) const {
  for (const auto& [problem, key] : kStates) {
    if (problem == line.problem) return Text(key);
  }
  return line.detail.empty() ? QString() : Format("strOptionsKeyChosen", {line.detail});
}

QString HotKeysField::Title(const shell::CommandRow& row) const {
  return Text(row.titleKey);
}

const HotKeyLine* HotKeysField::SelectedLine() const {
  for (const HotKeyLine& line : m_lines) {
    if (line.row == m_selected) return &line;
  }
  return nullptr;
}

void HotKeysField::Select(int index) {
  if (index < 0 || static_cast<std::size_t>(index) >= m_lines.size()) return;
  m_selected = m_lines[static_cast<std::size_t>(index)].row;
  m_contested.reset();
  ShowSelected();
}

void HotKeysField::ShowSelected() {
  const HotKeyLine* line = SelectedLine();
  if (line == nullptr) return;
  // What is being pressed at this moment is not overwritten.
  if (!m_recorder->IsListening()) m_recorder->SetKeys(line->keys);
  m_default->setEnabled(line->keys != shell::DefaultHotKey(*line->row));
  Advise();
  emit SelectedChanged();
}

/// Tells what is most important about the selected action's key.
void HotKeysField::Advise() {
  const HotKeyLine* line = SelectedLine();
  const shell::CommandRow* owner = m_contested ? shell::HotKeyOwner(Stored(), *m_contested) : nullptr;
  m_takeOver->setVisible(owner != nullptr);
  if (owner != nullptr) {
    Tell(Format("msgOptionsKeyContested", {FromQt(HotKeyText(*m_contested)), FromQt(Title(*owner))}));
  } else if (m_recorder->IsListening()) {
    Tell(Text("strOptionsKeyListening"));
  } else if (line != nullptr && line->keys && line->problem != HotKeyProblem::None) {
    Tell(HotKeyProblemText(desk().strings(), *line->keys, line->problem, line->detail));
  } else {
    Tell(desk().facts().hotKeysPossible ? Text("strOptionsKeyHelp") : QString());
  }
}

void HotKeysField::Tell(const QString& text) {
  if (m_advice->text() == text) return;
  m_advice->setText(text);
  m_recorder->setAccessibleDescription(text);
  if (!m_recorder->hasFocus()) return;
  QAccessibleEvent event(m_advice, QAccessible::Alert);
  QAccessible::updateAccessibility(&event);
}

void HotKeysField::SetKeys(const std::optional<KeyCombination>& keys) {
  m_contested.reset();
  if (m_selected == nullptr) return;
  m_touched.insert(m_selected);
  const std::string text = shell::WithHotKey(Stored(), *m_selected, keys);
  Send(text);
  Fill(Stored());
}

void HotKeysField::Assign(const std::optional<KeyCombination>& keys) {
  if (m_selected == nullptr) return;
  const shell::CommandRow* owner = keys ? shell::HotKeyOwner(Stored(), *keys) : nullptr;
  if (owner == nullptr || owner == m_selected) return SetKeys(keys);
  m_contested = keys;
  Advise();
}

void HotKeysField::Remove() {
  SetKeys(std::nullopt);
}

void HotKeysField::UseDefault() {
  if (m_selected != nullptr) Assign(shell::DefaultHotKey(*m_selected));
}

void HotKeysField::TakeOver() {
  if (!m_contested) return;
  m_touched.insert(shell::HotKeyOwner(Stored(), *m_contested));
  m_recorder->setFocus(Qt::PopupFocusReason);  // the button goes
  SetKeys(std::optional(*m_contested));
}

void HotKeysField::UseAllDefaults() {
  m_contested.reset();
  m_table->setFocus();  // the button becomes grey
  Send({});
  Fill(Stored());
}

bool HotKeysField::TakePressed(const shell::CommandRow& row) {
  for (const HotKeyState& state : desk().facts().hotKeys) {
    if (state.row == &row) return m_recorder->Take(state.keys);
  }
  return false;
}

void HotKeysField::Choose(const shell::CommandRow& row) {
  m_touched.insert(&row);
  m_selected = &row;
  m_contested.reset();
  Fill(Stored());
  m_table->scrollToItem(m_table->currentItem());
  m_recorder->Record();
}

void HotKeysField::PickAction() {
  const auto keyOf = [setting = Stored()](const shell::CommandRow& row) {
    for (const shell::HotKeyAssignment& one : shell::AssignedHotKeys(setting)) {
      if (one.row == &row) return HotKeyText(one.keys);
    }
    return QString();
  };
  m_picker = new ActionPicker(desk().strings(), keyOf,
                              [self = QPointer(this)](std::optional<const shell::CommandRow*> row) {
                                if (!self || !self->isVisible()) return;
                                BringToFront(*self->window());  // not every desktop does it by itself
                                if (row) self->Choose(**row);
                              });
  BringToFront(*m_picker);
}

}  // namespace quill::ui
