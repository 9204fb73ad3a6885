#include "ui/kit/color_popover.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QScreen>
#include <algorithm>
#include <array>

#include "content/color_hex.h"
#include "ui/kit/color_field.h"
#include "ui/kit/qt_text.h"

namespace quill::ui {
namespace {

constexpr int kHexDigits = 6;

// Greys first, then eight hues at four depths: pastel, bright, strong, dark.
constexpr std::array<QRgb, 40> kPalette = {
    0xFFFFFF, 0xF2F2F2, 0xD9D9D9, 0xBFBFBF, 0x8C8C8C, 0x595959, 0x262626, 0x000000,  //
    0xFADBD8, 0xFCE4CC, 0xFFF4C2, 0xDDF2D1, 0xCDEFEA, 0xD3E5FA, 0xE2DAF6, 0xF8D7E8,  //
    0xF1948A, 0xF6B26B, 0xFFE066, 0x93D27B, 0x6FCFC0, 0x7DB3EE, 0xA78BE0, 0xEA8CBC,  //
    0xD93025, 0xE8710A, 0xF2B600, 0x34A853, 0x12998A, 0x1A73E8, 0x7B3FD0, 0xC2277F,  //
    0x8C1D18, 0x9A4A06, 0x8A6700, 0x1B6B33, 0x0B5F56, 0x0F4798, 0x4A2288, 0x7A1650};

}  // namespace

QString ColorHex(const QColor& color) {
  return ToQt(content::ColorToHex(color.redF(), color.greenF(), color.blueF())).toUpper();
}

std::optional<QColor> ColorFromHex(const QString& text) {
  static const QRegularExpression kHex(QStringLiteral("^#?([0-9A-Fa-f]{6}|[0-9A-Fa-f]{3})$"));
  const QRegularExpressionMatch match = kHex.match(text.trimmed());
  if (!match.hasMatch()) return std::nullopt;
  return QColor(QStringLiteral("#") + match.captured(1));
}

std::span<const QRgb> PaletteColors() {
  return kPalette;
}

ColorPopover::ColorPopover(const shell::StringTable& strings, const QColor& color,
                           const std::vector<QColor>& recent, QWidget* parent)
    : QFrame(parent, Qt::Popup), m_color(color) {
  setAttribute(Qt::WA_DeleteOnClose);
  setFrameShape(QFrame::StyledPanel);
  setAccessibleName(ToQt(strings.Text("strColors")));
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(8, 8, 8, 8);

  auto* grid = new QGridLayout;
  grid->setSpacing(0);
  for (std::size_t at = 0; at < kPalette.size(); at += kPaletteColumns) {
    const auto row = std::span(kPalette).subspan(at, kPaletteColumns);
    AddRow(*grid, grid->rowCount(), {row.begin(), row.end()});
  }
  column->addLayout(grid);
  if (!recent.empty()) {
    column->addWidget(new QLabel(ToQt(strings.Text("strColorRecent"))));
    auto* last = new QGridLayout;
    last->setSpacing(0);
    last->setColumnStretch(kPaletteColumns, 1);
    AddRow(*last, 0, recent);
    column->addLayout(last);
  }

  auto* line = new QHBoxLayout;
  auto* label = new QLabel(ToQt(strings.Text("strColorHex")));
  m_hex = new QLineEdit(ColorHex(color));
  m_hex->setMaxLength(kHexDigits + 1);
  m_hex->setValidator(
      new QRegularExpressionValidator(QRegularExpression(QStringLiteral("#?[0-9A-Fa-f]{0,6}")), m_hex));
  m_hex->setFixedWidth(m_hex->fontMetrics().horizontalAdvance(QStringLiteral("#DDDDDDD")) + 16);
  m_hex->setLayoutDirection(Qt::LeftToRight);
  label->setBuddy(m_hex);
  auto* more = new QPushButton(ToQt(strings.Text("strColorMore")));
  line->addWidget(label);
  line->addWidget(m_hex);
  line->addStretch();
  line->addWidget(more);
  column->addLayout(line);
  connect(m_hex, &QLineEdit::returnPressed, this, &ColorPopover::TakeHex);
  connect(more, &QPushButton::clicked, this, [this] {
    emit MoreWanted();
    close();
  });

  // The colour that is shown has the focus; when it is none of the palette's, the first one.
  QAbstractButton* first = m_fields.front().front();
  for (const auto& row : m_fields) {
    for (QAbstractButton* field : row) {
      if (field->isChecked()) first = field;
    }
  }
  first->setFocusPolicy(Qt::StrongFocus);
  first->setFocus();
}

void ColorPopover::AddRow(QGridLayout& grid, int row, const std::vector<QColor>& colors) {
  std::vector<QAbstractButton*> fields;
  for (const QColor& color : colors) {
    auto* field = new ColorField(color, color.rgb() == m_color.rgb(), this);
    connect(field, &QAbstractButton::clicked, this, [this, color] { Take(color); });
    grid.addWidget(field, row, static_cast<int>(fields.size()));
    fields.push_back(field);
  }
  m_fields.push_back(std::move(fields));
}

void ColorPopover::ShowAt(const QWidget& widget) {
  adjustSize();
  const QRect room = widget.screen()->availableGeometry();
  const QRect beside(widget.mapToGlobal(QPoint(0, 0)), widget.size());
  QPoint at(layoutDirection() == Qt::RightToLeft ? beside.right() - width() + 1 : beside.left(),
            beside.bottom() + 1);
  if (at.y() + height() > room.bottom()) at.setY(beside.top() - height());
  at.setX(std::clamp(at.x(), room.left(), std::max(room.left(), room.right() - width())));
  at.setY(std::max(at.y(), room.top()));
  move(at);
  show();
}

void ColorPopover::MoveFocus(int columns, int rows) {
  for (std::size_t row = 0; row < m_fields.size(); ++row) {
    const auto here = std::find(m_fields[row].begin(), m_fields[row].end(), focusWidget());
    if (here == m_fields[row].end()) continue;
    const auto toRow = std::clamp<std::ptrdiff_t>(std::ptrdiff_t(row) + rows, 0, std::ssize(m_fields) - 1);
    const auto& target = m_fields[static_cast<std::size_t>(toRow)];
    const auto column =
        std::clamp<std::ptrdiff_t>(here - m_fields[row].begin() + columns, 0, std::ssize(target) - 1);
    (*here)->setFocusPolicy(Qt::ClickFocus);
    QAbstractButton* next = target[static_cast<std::size_t>(column)];
    next->setFocusPolicy(Qt::StrongFocus);
    return next->setFocus(Qt::TabFocusReason);
  }
}

void ColorPopover::keyPressEvent(QKeyEvent* event) {
  const int forward = layoutDirection() == Qt::RightToLeft ? -1 : 1;
  auto* field = dynamic_cast<ColorField*>(focusWidget());
  switch (event->key()) {
    case Qt::Key_Left:
      return MoveFocus(-forward, 0);
    case Qt::Key_Right:
      return MoveFocus(forward, 0);
    case Qt::Key_Up:
      return MoveFocus(0, -1);
    case Qt::Key_Down:
      return MoveFocus(0, 1);
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (field != nullptr) return Take(field->color());
      if (auto* button = qobject_cast<QAbstractButton*>(focusWidget())) button->click();
      return;
    case Qt::Key_Escape:
      close();
      return;
    default:
      QFrame::keyPressEvent(event);
  }
}

void ColorPopover::TakeHex() {
  const std::optional<QColor> color = ColorFromHex(m_hex->text());
  if (color) return Take(*color);
  m_hex->selectAll();
}

void ColorPopover::Take(const QColor& color) {
  emit Chosen(color);
  close();
}

}  // namespace quill::ui
