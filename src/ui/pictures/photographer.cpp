#include "ui/pictures/photographer.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QPainter>
#include <QWindow>
#include <algorithm>
#include <cstdio>

namespace quill::ui {
namespace {

constexpr int kLookMs = 20;
constexpr qint64 kLongestWaitMs = 10'000;
// So many looks must find the windows where they were: a window manager moves and resizes them once more.
constexpr int kCalmLooks = 5;

bool IsReady(const QWidget& window) {
  if (!window.isVisible() || window.windowHandle() == nullptr || !window.windowHandle()->isExposed()) {
    return false;
  }
  // The focus is part of the picture. Menus and the like take the keyboard without being active.
  const bool takesKeyboard =
      window.windowType() == Qt::Dialog && !window.testAttribute(Qt::WA_ShowWithoutActivating);
  return !takesKeyboard || window.isActiveWindow();
}

bool IsBlank(const QImage& image) {
  const QRgb first = image.pixel(0, 0);
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (image.pixel(x, y) != first) return false;
    }
  }
  return true;
}

/// The texts of a window that have less room than they need.
QStringList CutOff(const QWidget& window) {
  QStringList texts;
  for (const auto* label : window.findChildren<QLabel*>()) {
    if (!label->isVisible() || label->text().isEmpty()) continue;
    const bool fits = label->wordWrap() ? label->height() >= label->heightForWidth(label->width())
                                        : label->width() >= label->sizeHint().width();
    if (!fits) texts += label->text();
  }
  for (const auto* button : window.findChildren<QAbstractButton*>()) {
    if (!button->isVisible() || button->text().isEmpty()) continue;
    if (button->width() < button->minimumSizeHint().width()) texts += button->text();
  }
  return texts;
}

/// The windows as they stand beside each other on the screen; nothing where there is none.
QPixmap Together(const QList<QWidget*>& windows) {
  if (windows.size() == 1) return windows.front()->grab();
  QRect all;
  for (const QWidget* window : windows) all |= window->geometry();
  const double ratio = windows.front()->devicePixelRatioF();
  QPixmap picture(all.size() * ratio);
  picture.setDevicePixelRatio(ratio);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  for (QWidget* window : windows) painter.drawPixmap(window->pos() - all.topLeft(), window->grab());
  return picture;
}

}  // namespace

Photographer::Photographer(const shell::StringTable& strings, const QDir& folder, QString suffix)
    : m_strings(strings), m_folder(folder), m_suffix(std::move(suffix)) {
  m_timer.setInterval(kLookMs);
  connect(&m_timer, &QTimer::timeout, this, [this] { LookAgain(); });
}

void Photographer::Start(const QString& only) {
  for (Scene& scene : Scenes()) {
    if (scene.name.contains(only)) m_scenes.push_back(std::move(scene));
  }
  if (m_scenes.empty()) {
    std::fprintf(stderr, "quill_pictures: no scene is called %s\n", qUtf8Printable(only));
    m_allWell = false;
  }
  QTimer::singleShot(0, this, [this] { OpenNext(); });
}

void Photographer::OpenNext() {
  m_studio.reset();
  if (m_scenes.empty()) return QApplication::exit(m_allWell ? 0 : 1);
  m_studio = std::make_unique<Studio>(m_strings);
  m_look = m_scenes.front().open(*m_studio);
  m_lastPlaces.clear();
  m_calmLooks = 0;
  m_sinceOpened.start();
  m_timer.start();
}

void Photographer::LookAgain() {
  const QList<QWidget*> windows = m_look();
  QList<QRect> places;
  for (const QWidget* window : windows) {
    if (IsReady(*window)) places += window->geometry();
  }
  const bool calm = !windows.empty() && places.size() == windows.size() && places == m_lastPlaces;
  m_calmLooks = calm ? m_calmLooks + 1 : 0;
  m_lastPlaces = places;
  const bool late = m_sinceOpened.elapsed() > kLongestWaitMs;
  if (m_calmLooks < kCalmLooks && !late) return;
  m_timer.stop();
  late ? Complain(QStringLiteral("the window did not come")) : Take(windows);
  m_scenes.pop_front();
  OpenNext();
}

void Photographer::Take(const QList<QWidget*>& windows) {
  const QImage picture = Together(windows).toImage();
  const QString file = m_folder.filePath(m_scenes.front().name + m_suffix + QStringLiteral(".png"));
  if (picture.isNull() || IsBlank(picture)) return Complain(QStringLiteral("the picture is empty"));
  // Best compression: the pictures are stored with the sources.
  if (!picture.save(file, "PNG", 0)) return Complain(QStringLiteral("cannot write ") + file);
  for (const QWidget* window : windows) {
    for (const QString& text : CutOff(*window)) Complain(QStringLiteral("cut off: ") + text);
  }
}

void Photographer::Complain(const QString& what) {
  std::fprintf(stderr, "quill_pictures: %s: %s\n", qUtf8Printable(m_scenes.front().name),
               qUtf8Printable(what));
  m_allWell = false;
}

}  // namespace quill::ui
