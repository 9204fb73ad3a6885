#include "ui/windows/syntax/busy_line.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <chrono>

namespace quill::ui {

using namespace std::chrono_literals;

BusyLine::BusyLine(const QString& text) : m_bar(new QProgressBar) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins({});
  row->addWidget(new QLabel(text));
  row->addWidget(m_bar, 1);
  m_bar->setTextVisible(false);
  m_bar->setAccessibleName(text);
  setAccessibleName(text);
  QSizePolicy policy = sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  setSizePolicy(policy);
  hide();
  m_delay.setSingleShot(true);
  m_delay.setInterval(500ms);
  connect(&m_delay, &QTimer::timeout, this, &BusyLine::Appear);
}

void BusyLine::Appear() {
  m_bar->setRange(0, 0);
  show();
  QAccessibleEvent alert(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

void BusyLine::End() {
  m_delay.stop();
  m_bar->setRange(0, 1);  // a hidden bar that moves still takes the processor
  hide();
}

}  // namespace quill::ui
