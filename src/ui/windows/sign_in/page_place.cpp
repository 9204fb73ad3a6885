#include "ui/windows/sign_in/page_place.h"

#include <QEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>

#include "ui/kit/dark.h"
#include "ui/kit/elided_label.h"
#include "ui/kit/qt_text.h"

namespace quill::ui {
namespace {

constexpr qsizetype kLongestName = 60;

const char* WordsOf(PageGuard guard) {
  switch (guard) {
    case PageGuard::Encrypted:
      return "strSignInEncrypted";
    case PageGuard::ThisMachine:
      return "strSignInThisMachine";
    case PageGuard::Unencrypted:
      return "strSignInUnencrypted";
  }
  return "";
}

QColor ColorOf(PageGuard guard, const QPalette& palette) {
  if (guard != PageGuard::Unencrypted) return palette.color(QPalette::WindowText);
  return IsDark(palette) ? QColor(0xff, 0x8a, 0x80) : QColor(0xb3, 0x1b, 0x1b);
}

/// A lock, open when nothing is encrypted; a screen for this machine. In a square of 16.
void DrawSign(QPainter& painter, PageGuard guard) {
  if (guard == PageGuard::ThisMachine) {
    painter.drawRoundedRect(QRectF(1.5, 2.5, 13, 8.5), 1, 1);
    painter.drawLine(QPointF(8, 11), QPointF(8, 13.5));
    painter.drawLine(QPointF(5, 13.5), QPointF(11, 13.5));
    return;
  }
  const bool isOpen = guard == PageGuard::Unencrypted;
  QPainterPath bow;
  bow.moveTo(5, isOpen ? 5.5 : 7.5);
  bow.lineTo(5, 5);
  bow.arcTo(QRectF(5, 2, 6, 6), 180, -180);
  bow.lineTo(11, 7.5);
  painter.drawPath(bow);
  painter.setBrush(painter.pen().color());
  painter.drawRoundedRect(QRectF(3.5, 7.5, 9, 6), 1, 1);
}

QPixmap Sign(PageGuard guard, const QColor& color, int size, qreal scale) {
  QPixmap pixmap(QSize(size, size) * scale);
  pixmap.setDevicePixelRatio(scale);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(size / 16.0, size / 16.0);
  painter.setPen(QPen(color, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  DrawSign(painter, guard);
  return pixmap;
}

}  // namespace

PageGuard GuardOf(const QUrl& url) {
  if (url.scheme() == QLatin1String("https")) return PageGuard::Encrypted;
  static const QStringList kHere = {"localhost", "127.0.0.1", "::1"};
  return kHere.contains(url.host()) ? PageGuard::ThisMachine : PageGuard::Unencrypted;
}

QString ServerName(const QUrl& url) {
  QString name = url.host(QUrl::FullyEncoded);
  if (url.port() >= 0) name += u':' + QString::number(url.port());
  return name.size() <= kLongestName ? name : u'…' + name.right(kLongestName);
}

Qt::Alignment BesideTheLock() {
  return Qt::AlignAbsolute | Qt::AlignVCenter |
         (QGuiApplication::isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft);
}

PagePlace::PagePlace(const shell::StringTable& strings)
    : m_strings(strings), m_sign(new QLabel), m_server(new QLabel), m_words(new ElidedLabel) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins({});
  m_server->setTextFormat(Qt::PlainText);
  m_server->setObjectName(QStringLiteral("server"));
  m_words->setAlignment(BesideTheLock());
  m_words->setObjectName(QStringLiteral("guard"));
  QFont bold = m_server->font();
  bold.setBold(true);
  m_server->setFont(bold);
  row->addWidget(m_sign);
  row->addWidget(m_server);
  row->addWidget(m_words, 1);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void PagePlace::Show(const QUrl& url) {
  m_url = url;
  Paint();
}

void PagePlace::Paint() {
  const bool isSomewhere = m_url.isValid() && !m_url.host().isEmpty();
  const PageGuard guard = GuardOf(m_url);
  const QColor color = ColorOf(guard, palette());
  const int size = fontMetrics().height();
  m_sign->setPixmap(isSomewhere ? Sign(guard, color, size, devicePixelRatioF()) : QPixmap());
  m_sign->setFixedSize(size, size);  // so that the row does not jump
  m_server->setText(isSomewhere ? ServerName(m_url) : QString());
  m_words->SetText(isSomewhere ? ToQt(m_strings.Text(WordsOf(guard))) : QString());
  QPalette colors = palette();
  colors.setColor(QPalette::WindowText, color);
  m_words->setPalette(colors);
  setAccessibleName(isSomewhere
                        ? m_server->text() + QStringLiteral(", ") + ToQt(m_strings.Text(WordsOf(guard)))
                        : QString());
}

void PagePlace::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) Paint();
}

}  // namespace quill::ui
