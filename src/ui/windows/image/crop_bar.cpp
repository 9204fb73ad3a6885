#include "ui/windows/image/crop_bar.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>

#include "ui/kit/qt_text.h"

namespace quill::ui {
namespace {

CropBar::Change ToX(int x) {
  return [x](CropFrame& frame) { frame.MoveBy({x - frame.rect().x(), 0}); };
}

CropBar::Change ToY(int y) {
  return [y](CropFrame& frame) { frame.MoveBy({0, y - frame.rect().y()}); };
}

// The first number of a selection takes the whole picture in the other direction; 0 ends it.
CropBar::Change ToWidth(int width) {
  return [width](CropFrame& frame) {
    if (frame.empty()) frame.Set(QRect(0, 0, width, frame.picture().height()));
    if (width == 0) return frame.Clear();
    frame.SetWidth(width);
  };
}

CropBar::Change ToHeight(int height) {
  return [height](CropFrame& frame) {
    if (frame.empty()) frame.Set(QRect(0, 0, frame.picture().width(), height));
    if (height == 0) return frame.Clear();
    frame.SetHeight(height);
  };
}

void ShowNumber(QSpinBox& box, int value, int least, int most) {
  const QSignalBlocker quiet(box);
  box.setRange(least, most);
  box.setValue(value);
}

}  // namespace

CropBar::CropBar(const shell::StringTable& strings, std::function<void(const Change&)> apply, QWidget* parent)
    : QWidget(parent), m_strings(strings), m_apply(std::move(apply)) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  m_x = AddNumber("strImageLeft", "x", ToX);
  m_y = AddNumber("strImageTop", "y", ToY);
  m_width = AddNumber("strImageWidth", "width", ToWidth);
  m_height = AddNumber("strImageHeight", "height", ToHeight);

  m_ratio = new QCheckBox(ToQt(strings.Text("strImageKeepRatio")));
  connect(m_ratio, &QCheckBox::toggled, this,
          [this](bool locked) { m_apply([locked](CropFrame& frame) { frame.LockRatio(locked); }); });
  row->addWidget(m_ratio);
  row->addStretch();

  auto* all = new QPushButton(ToQt(strings.Text("strImageSelectAll")));
  connect(all, &QPushButton::clicked, this, [this] { m_apply([](CropFrame& frame) { frame.SelectAll(); }); });
  m_clear = new QPushButton(ToQt(strings.Text("strImageClear")));
  connect(m_clear, &QPushButton::clicked, this, [this] { m_apply([](CropFrame& frame) { frame.Clear(); }); });
  for (QPushButton* button : {all, m_clear}) {
    button->setAutoDefault(false);
    row->addWidget(button);
  }
}

QSpinBox* CropBar::AddNumber(const std::string& key, const std::string& name, Change (*change)(int)) {
  auto* label = new QLabel(ToQt(m_strings.Text(key)));
  auto* box = new QSpinBox;
  box->setObjectName(QString::fromStdString(name));
  box->setKeyboardTracking(false);  // a number counts when it is complete
  box->setRange(0, 99999);          // as wide as it will ever have to be
  box->setMinimumWidth(box->sizeHint().width());
  label->setBuddy(box);
  connect(box, &QSpinBox::valueChanged, this, [this, change](int value) { m_apply(change(value)); });
  layout()->addWidget(label);
  layout()->addWidget(box);
  return box;
}

void CropBar::Show(const CropFrame& frame) {
  const QRect& rect = frame.rect();
  const QSize whole = frame.picture();
  const bool selected = !frame.empty();
  ShowNumber(*m_x, selected ? rect.x() : 0, 0, selected ? whole.width() - rect.width() : 0);
  ShowNumber(*m_y, selected ? rect.y() : 0, 0, selected ? whole.height() - rect.height() : 0);
  ShowNumber(*m_width, selected ? rect.width() : 0, 0, whole.width() - (selected ? rect.x() : 0));
  ShowNumber(*m_height, selected ? rect.height() : 0, 0, whole.height() - (selected ? rect.y() : 0));
  m_x->setEnabled(selected);
  m_y->setEnabled(selected);
  m_clear->setEnabled(selected);
  const QSignalBlocker quiet(m_ratio);
  m_ratio->setChecked(frame.ratioLocked());
}

}  // namespace quill::ui
