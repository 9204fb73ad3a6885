#include "ui/windows/image_table/skipped_line.h"

#include <QAccessible>
#include <QLabel>
#include <QLocale>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

#include "shell/skipped_pictures.h"
#include "ui/kit/elided_label.h"
#include "ui/kit/qt_text.h"

namespace quill::ui {
namespace {

constexpr int kLines = 5;
/// Nobody reads on; the first ones go.
constexpr int kMostNamed = 10'000;

}  // namespace

SkippedLine::SkippedLine(const shell::StringTable& strings)
    : m_strings(strings), m_words(new ElidedLabel), m_more(new QPushButton), m_all(new QPlainTextEdit) {
  auto* icon = new QLabel;
  const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
  icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(size));
  auto* line = new QHBoxLayout;
  line->addWidget(icon);
  line->addWidget(m_words, 1);
  line->addWidget(m_more);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins({});
  column->addLayout(line);
  column->addWidget(m_all);
  m_more->setText(ToQt(strings.Text("strImageTableShowAll")));
  m_more->setCheckable(true);
  m_more->setAutoDefault(false);
  connect(m_more, &QPushButton::toggled, m_all, &QWidget::setVisible);
  m_all->setReadOnly(true);
  m_all->setTabChangesFocus(true);
  m_all->setLineWrapMode(QPlainTextEdit::NoWrap);
  m_all->document()->setMaximumBlockCount(kMostNamed);
  m_all->setFixedHeight(m_all->fontMetrics().lineSpacing() * kLines + m_all->frameWidth() * 2 +
                        qRound(m_all->document()->documentMargin() * 2));
  m_all->setAccessibleName(ToQt(strings.Text("strImageTableLeftOutList")));
  m_all->hide();
  hide();
}

void SkippedLine::Add(const std::vector<tools::SkippedPath>& skipped) {
  if (skipped.empty()) return;
  m_count += skipped.size();
  QString lines;
  for (const tools::SkippedPath& one : skipped) {
    if (!lines.isEmpty()) lines += u'\n';
    lines += ToQt(shell::SkippedText(m_strings, one)).replace(u'\n', u' ');
  }
  m_all->appendPlainText(lines);
  const std::string last = shell::SkippedText(m_strings, skipped.back());
  const std::string count = FromQt(QLocale().toString(static_cast<qulonglong>(m_count)));
  m_words->SetText(ToQt(m_strings.Format("strImageTableLeftOut", {count, last})));
  show();
  QAccessibleEvent alert(m_words, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

void SkippedLine::Clear() {
  m_count = 0;
  m_all->clear();
  m_more->setChecked(false);
  hide();
}

}  // namespace quill::ui
