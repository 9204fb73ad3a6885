#include "ui/windows/image_table/walk_line.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>
#include <chrono>

#include "ui/kit/qt_text.h"
#include "ui/windows/image_table/picture_walk.h"

namespace quill::ui {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds kShownAfter = 500ms;
constexpr std::chrono::milliseconds kLook = 100ms;

}  // namespace

WalkLine::WalkLine(const shell::StringTable& strings, PictureWalk& walk)
    : m_strings(strings), m_walk(walk), m_words(new QLabel), m_bar(new QProgressBar) {
  m_bar->setRange(0, 0);
  m_bar->setTextVisible(false);
  m_bar->setFixedWidth(m_bar->fontMetrics().averageCharWidth() * 14);
  auto* stop = new QPushButton(ToQt(strings.Text("strImageTableStop")));
  stop->setAutoDefault(false);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins({});
  row->addWidget(m_bar);
  row->addWidget(m_words, 1);
  row->addWidget(stop);
  hide();
  connect(stop, &QPushButton::clicked, &walk, &PictureWalk::Stop);
  connect(&walk, &PictureWalk::Began, this, [this] { m_timer.start(kShownAfter); });
  connect(&walk, &PictureWalk::Ended, this, [this] {
    m_timer.stop();
    hide();
  });
  connect(&m_timer, &QTimer::timeout, this, &WalkLine::Tell);
}

void WalkLine::Tell() {
  m_timer.start(kLook);
  const QString found = QLocale().toString(static_cast<qulonglong>(m_walk.found()));
  m_words->setText(ToQt(m_strings.Format("strImageTableLooking", {FromQt(found)})));
  if (!isVisible()) m_bar->setAccessibleName(m_words->text());
  show();
}

}  // namespace quill::ui
