#include "ui/windows/win_ruler.h"

#include <QActionGroup>
#include <QContextMenuEvent>
#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <array>

#include "ui/kit/arrow_keys.h"
#include "ui/kit/qt_text.h"

namespace quill::ui {
namespace {

constexpr int kFirstLength = 600;
constexpr int kFirstBreadth = 64;
constexpr int kEdge = 7;             // as much of the border resizes
constexpr int kCascade = 28;         // between two rulers that were opened one after the other
constexpr int kCascadeLength = 8;    // then it begins again
constexpr int kFollowInterval = 33;  // ms; the pointer outside of the window tells nobody
constexpr int kLargeStep = 10;
constexpr std::array kOpacities = {100, 90, 75, 60, 45};

constexpr std::array kUnits = {RulerUnit::Pixels, RulerUnit::Centimetres, RulerUnit::Inches};

std::string_view UnitKey(RulerUnit unit) {
  switch (unit) {
    case RulerUnit::Centimetres:
      return "strRulerCentimetres";
    case RulerUnit::Inches:
      return "strRulerInches";
    case RulerUnit::Pixels:
      break;
  }
  return "strRulerPixels";
}

Qt::CursorShape EdgeCursor(Qt::Edges edges) {
  const bool across = (edges & (Qt::LeftEdge | Qt::RightEdge)) != 0;
  const bool down = (edges & (Qt::TopEdge | Qt::BottomEdge)) != 0;
  if (across && down) {
    const bool falling = edges == (Qt::LeftEdge | Qt::TopEdge) || edges == (Qt::RightEdge | Qt::BottomEdge);
    return falling ? Qt::SizeFDiagCursor : Qt::SizeBDiagCursor;
  }
  if (across) return Qt::SizeHorCursor;
  return down ? Qt::SizeVerCursor : Qt::SizeAllCursor;
}

/// Programs may not place their windows there; the compositor has to be asked to.
bool CompositorMoves() {
  return QGuiApplication::platformName().startsWith(QStringLiteral("wayland"));
}

}  // namespace

MWinRuler::MWinRuler(const shell::StringTable& strings, std::shared_ptr<RulerMemory> memory)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint),
      m_strings(strings),
      m_memory(std::move(memory)),
      m_unit(m_memory->unit),
      m_orientation(m_memory->orientation),
      m_opacity(m_memory->opacity) {
  setAttribute(Qt::WA_DeleteOnClose);
  setAttribute(Qt::WA_TranslucentBackground);
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setWindowTitle(Text("titleRuler"));
  setAccessibleName(Text("titleRuler"));
  // A ruler counts from the left in every language.
  setLayoutDirection(Qt::LeftToRight);

  const QScreen* screen = QGuiApplication::screenAt(QCursor::pos());
  if (screen == nullptr) screen = QGuiApplication::primaryScreen();
  const QRect room = screen->availableGeometry();
  QSize size(std::min(kFirstLength, room.width() * 3 / 4), kFirstBreadth);
  if (!IsHorizontal()) size = QSize(kFirstBreadth, std::min(kFirstLength, room.height() * 3 / 4));
  const int beside = kCascade * (m_memory->opened++ % kCascadeLength);
  setGeometry(QRect(room.topLeft() + QPoint(room.width() / 8 + beside, room.height() / 8 + beside), size));
  Describe();
  startTimer(kFollowInterval);
}

QString MWinRuler::Text(std::string_view key) const {
  return ToQt(m_strings.Text(key));
}

RulerDisplay MWinRuler::Display() const {
  const double physical =
      IsHorizontal() ? screen()->physicalDotsPerInchX() : screen()->physicalDotsPerInchY();
  return DescribeDisplay(physical, screen()->logicalDotsPerInch(), devicePixelRatioF());
}

void MWinRuler::Describe() {
  const std::string length = RulerReading(m_unit, IsHorizontal() ? width() : height(), Display());
  setAccessibleDescription(ToQt(m_strings.Format("strRulerHelp", {length})));
  update();
}

void MWinRuler::SetUnit(RulerUnit unit) {
  m_unit = m_memory->unit = unit;
  Describe();
}

void MWinRuler::SetOrientation(Qt::Orientation orientation) {
  if (orientation == m_orientation) return;
  m_orientation = m_memory->orientation = orientation;
  m_pointer.reset();
  TakeGeometry(QRect(pos(), size().transposed()), {});
}

void MWinRuler::SetOpacity(double opacity) {
  m_opacity = m_memory->opacity = opacity;
  update();
}

void MWinRuler::TakeGeometry(QRect wanted, Qt::Edges moved) {
  const auto fitted = [this](int length, bool along) {
    return along ? std::max(length, kLeastLength) : std::clamp(length, kLeastBreadth, kMostBreadth);
  };
  const QSize size(fitted(wanted.width(), IsHorizontal()), fitted(wanted.height(), !IsHorizontal()));
  if ((moved & Qt::LeftEdge) != 0) wanted.setLeft(wanted.right() - size.width() + 1);
  if ((moved & Qt::TopEdge) != 0) wanted.setTop(wanted.bottom() - size.height() + 1);
  setGeometry(QRect(wanted.topLeft(), size));
  Describe();
}

void MWinRuler::keyPressEvent(QKeyEvent* event) {
  const QPoint by =
      ArrowDirection(event->key()) * ((event->modifiers() & Qt::ShiftModifier) != 0 ? kLargeStep : 1);
  if (!by.isNull() && (event->modifiers() & Qt::ControlModifier) != 0) {
    TakeGeometry(QRect(pos(), QSize(width() + by.x(), height() + by.y())), {});
  } else if (!by.isNull()) {
    move(pos() + by);
  } else if (event->key() == Qt::Key_Escape || event->matches(QKeySequence::Close)) {
    close();
  } else if (event->key() == Qt::Key_V) {
    SetOrientation(IsHorizontal() ? Qt::Vertical : Qt::Horizontal);
  } else if (event->key() == Qt::Key_U) {
    SetUnit(kUnits[(static_cast<std::size_t>(m_unit) + 1) % kUnits.size()]);
  } else {
    QWidget::keyPressEvent(event);
  }
}

Qt::Edges MWinRuler::EdgesAt(QPoint at) const {
  Qt::Edges edges;
  if (at.x() < kEdge) edges |= Qt::LeftEdge;
  if (at.x() >= width() - kEdge) edges |= Qt::RightEdge;
  if (at.y() < kEdge) edges |= Qt::TopEdge;
  if (at.y() >= height() - kEdge) edges |= Qt::BottomEdge;
  return edges;
}

void MWinRuler::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const Qt::Edges edges = EdgesAt(event->position().toPoint());
  if (CompositorMoves() && windowHandle() != nullptr) {
    if (edges) {
      windowHandle()->startSystemResize(edges);
    } else {
      windowHandle()->startSystemMove();
    }
    return;
  }
  m_grip = Grip{edges, event->globalPosition().toPoint(), geometry()};
}

void MWinRuler::mouseMoveEvent(QMouseEvent* event) {
  if (!m_grip) {
    setCursor(EdgeCursor(EdgesAt(event->position().toPoint())));
    return FollowPointer();
  }
  const QPoint by = event->globalPosition().toPoint() - m_grip->pressed;
  if (!m_grip->edges) return move(m_grip->start.topLeft() + by);
  QRect wanted = m_grip->start;
  if ((m_grip->edges & Qt::LeftEdge) != 0) wanted.setLeft(wanted.left() + by.x());
  if ((m_grip->edges & Qt::RightEdge) != 0) wanted.setRight(wanted.right() + by.x());
  if ((m_grip->edges & Qt::TopEdge) != 0) wanted.setTop(wanted.top() + by.y());
  if ((m_grip->edges & Qt::BottomEdge) != 0) wanted.setBottom(wanted.bottom() + by.y());
  TakeGeometry(wanted, m_grip->edges);
}

void MWinRuler::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) m_grip.reset();
}

void MWinRuler::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  m_grip.reset();
  SetOrientation(IsHorizontal() ? Qt::Vertical : Qt::Horizontal);
}

void MWinRuler::timerEvent(QTimerEvent*) {
  if (isVisible()) FollowPointer();
}

void MWinRuler::FollowPointer() {
  const QPointF at = mapFromGlobal(QPointF(QCursor::pos()));
  const double along = IsHorizontal() ? at.x() : at.y();
  const bool beside = along < 0 || along > (IsHorizontal() ? width() : height());
  const std::optional<double> place = beside ? std::nullopt : std::optional(along);
  if (place == m_pointer) return;
  m_pointer = place;
  update();
}

QMenu* MWinRuler::MakeMenu() {
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  auto* units = new QActionGroup(menu);
  for (const RulerUnit unit : kUnits) {
    QAction* action = menu->addAction(Text(UnitKey(unit)), this, [this, unit] { SetUnit(unit); });
    action->setCheckable(true);
    action->setChecked(unit == m_unit);
    units->addAction(action);
  }
  menu->addSeparator();
  QAction* vertical = menu->addAction(Text("strRulerVertical"), this, [this] {
    SetOrientation(IsHorizontal() ? Qt::Vertical : Qt::Horizontal);
  });
  vertical->setCheckable(true);
  vertical->setChecked(!IsHorizontal());
  vertical->setShortcut(Qt::Key_V);
  QMenu* opacity = menu->addMenu(Text("strRulerOpacity"));
  auto* grades = new QActionGroup(opacity);
  for (const int percent : kOpacities) {
    QAction* action = opacity->addAction(QStringLiteral("%1 %").arg(percent), this,
                                         [this, percent] { SetOpacity(percent / 100.0); });
    action->setCheckable(true);
    action->setChecked(qRound(m_opacity * 100) == percent);
    grades->addAction(action);
  }
  menu->addSeparator();
  menu->addAction(Text("strClose"), this, [this] { close(); })->setShortcut(Qt::Key_Escape);
  return menu;
}

void MWinRuler::contextMenuEvent(QContextMenuEvent* event) {
  MakeMenu()->popup(event->globalPos());
}

}  // namespace quill::ui
