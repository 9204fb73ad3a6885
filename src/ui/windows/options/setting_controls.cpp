#include "ui/windows/options/setting_controls.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <chrono>
#include <cstdlib>
#include <optional>

#include "ui/kit/qt_text.h"

namespace quill::ui {
namespace {

/// So long nobody types between two digits of one number.
constexpr std::chrono::milliseconds kPause{600};

/// A control that the mouse wheel does not change while the page is scrolled over it.
template <class Box>
class CalmBox : public Box {
 public:
  CalmBox() { this->setFocusPolicy(Qt::StrongFocus); }

 protected:
  void wheelEvent(QWheelEvent* event) override {
    if (this->hasFocus()) {
      Box::wheelEvent(event);
    } else {
      event->ignore();
    }
  }
};

/// A spin box that tells steps by keys, buttons and the wheel, which its signals mix with `setValue`.
class StepBox final : public CalmBox<QSpinBox> {
 public:
  explicit StepBox(std::function<void()> onChanged) : m_onChanged(std::move(onChanged)) {
    // Or an emptied field would go back to what was half typed in it.
    setKeyboardTracking(false);
    connect(lineEdit(), &QLineEdit::textEdited, this, [this] { m_onChanged(); });
  }

  void stepBy(int steps) override {
    QSpinBox::stepBy(steps);
    m_onChanged();
  }

  /// What is typed; nothing when it is half typed.
  std::optional<int> Number() const {
    return hasAcceptableInput() ? std::optional(valueFromText(text())) : std::nullopt;
  }

 private:
  std::function<void()> m_onChanged;
};

}  // namespace

CheckField::CheckField(OptionsDesk& desk, std::string_view key, const QString& title)
    : SettingField(desk, key), m_box(new QCheckBox(title)) {
  SetControl(m_box);
  connect(m_box, &QCheckBox::toggled, this, [this](bool on) { Send(on ? "true" : "false"); });
  Refresh();
}

void CheckField::Show(const std::string& text) {
  // Signals are on, for what is grey while the box is off; the desk knows that nothing has changed.
  m_box->setChecked(text == "true");
}

ChoiceField::ChoiceField(OptionsDesk& desk, std::string_view key,
                         const std::vector<std::pair<std::string, QString>>& choices)
    : SettingField(desk, key), m_box(new CalmBox<QComboBox>) {
  for (const auto& [value, title] : choices) m_box->addItem(title, ToQt(value));
  SetControl(m_box);
  column().setAlignment(m_box, Qt::AlignLeading);
  connect(m_box, &QComboBox::currentIndexChanged, this,
          [this] { Send(FromQt(m_box->currentData().toString())); });
  Refresh();
}

void ChoiceField::Show(const std::string& text) {
  const QSignalBlocker quiet(m_box);
  m_box->setCurrentIndex(m_box->findData(ToQt(text)));
}

void TypedField::StartTimerAfterTyping() {
  m_pause.setSingleShot(true);
  m_pause.setInterval(kPause);
  connect(&m_pause, &QTimer::timeout, this, [this] { CommitAfterPause(); });
}

void TypedField::Typed() {
  m_typed = true;
  ForgetProblem();
  m_pause.start();
}

void TypedField::Commit() {
  m_pause.stop();
  std::string text;
  if (!m_typed || !Read(text)) return;
  m_typed = false;
  Send(text);
}

void TypedField::CommitAfterPause() {
  std::string text;
  if (Read(text) && desk().Accepts(key(), text)) Commit();
}

NumberField::NumberField(OptionsDesk& desk, std::string_view key, const NumberRange& range)
    : TypedField(desk, key), m_scale(range.scale), m_box(new StepBox([this] { Typed(); })) {
  m_box->setRange(range.least, range.most);
  m_box->setSingleStep(range.step);
  m_box->setAccelerated(true);
  m_box->setGroupSeparatorShown(true);
  if (!range.unit.isEmpty()) m_box->setSuffix(QChar(QChar::Nbsp) + range.unit);
  SetControl(m_box);
  column().setAlignment(m_box, Qt::AlignLeading);
  StartTimerAfterTyping();
  connect(m_box, &QSpinBox::editingFinished, this, [this] { Commit(); });
  Refresh();
}

int NumberField::Shown(const std::string& text) const {
  return static_cast<int>((std::strtoll(text.c_str(), nullptr, 10) + m_scale / 2) / m_scale);
}

void NumberField::Show(const std::string& text) {
  const QSignalBlocker quiet(m_box);
  m_box->setValue(Shown(text));
}

bool NumberField::Read(std::string& text) {
  const std::optional<int> number = static_cast<StepBox*>(m_box)->Number();
  if (!number) return false;
  const std::string stored = Stored();
  text = *number == Shown(stored) ? stored : std::to_string(*number * m_scale);
  return true;
}

TextField::TextField(OptionsDesk& desk, std::string_view key, OuterSpaces spaces)
    : TypedField(desk, key), m_spaces(spaces), m_edit(new QLineEdit) {
  SetControl(m_edit);
  StartTimerAfterTyping();
  connect(m_edit, &QLineEdit::textEdited, this, [this] { Typed(); });
  connect(m_edit, &QLineEdit::editingFinished, this, [this] { Commit(); });
  Refresh();
}

void TextField::ShowWhenEmpty(const QString& text) {
  m_edit->setPlaceholderText(text);
}

void TextField::AddButton(QPushButton* button) {
  column().removeWidget(m_edit);
  auto* row = new QHBoxLayout;
  row->addWidget(m_edit, 1);
  row->addWidget(button);
  column().insertLayout(0, row);
}

void TextField::Enter(const std::string& text) {
  m_edit->setText(ToQt(text));
  Typed();
  Commit();
}

void TextField::OnText(std::function<void(const std::string& text)> listener) {
  listener(FromQt(m_edit->text()));
  connect(m_edit, &QLineEdit::textChanged, this,
          [listener = std::move(listener)](const QString& text) { listener(FromQt(text)); });
}

void TextField::Show(const std::string& text) {
  const QString shown = ToQt(text);
  if (m_edit->text() != shown) m_edit->setText(shown);
}

bool TextField::Read(std::string& text) {
  const QString typed = m_edit->text();
  text = FromQt(m_spaces == OuterSpaces::Dropped ? typed.trimmed() : typed);
  return true;
}

}  // namespace quill::ui
