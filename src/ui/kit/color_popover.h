#pragma once
#include <QColor>
#include <QFrame>
#include <QPointer>
#include <QToolButton>
#include <optional>
#include <span>
#include <vector>

#include "shell/string_table.h"

class QGridLayout;
class QLineEdit;

namespace quill::ui {

/// "#RRGGBB" in upper case, as settings keep colours.
QString ColorHex(const QColor& color);

/// The colour that six hex digits mean, with or without "#", in any case; three digits are short for six.
/// Nothing for any other text.
std::optional<QColor> ColorFromHex(const QString& text);

/// The colours that are offered: rows of `kPaletteColumns`, from light to dark.
inline constexpr int kPaletteColumns = 8;
std::span<const QRgb> PaletteColors();

/// Colours as small fields in rows, a field of hex digits, and the way to all other colours. Arrow keys go
/// through the fields, Return and Space take one, Escape closes. Deletes itself when it is closed.
class ColorPopover final : public QFrame {
  Q_OBJECT

 public:
  ColorPopover(const shell::StringTable& strings, const QColor& color, const std::vector<QColor>& recent,
               QWidget* parent);

  /// Shows itself beside this widget, on its screen.
  void ShowAt(const QWidget& widget);

 signals:
  /// The user has taken a colour; the popover closes.
  void Chosen(const QColor& color);
  /// The user wants to see all colours; the popover closes.
  void MoreWanted();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void AddRow(QGridLayout& grid, int row, const std::vector<QColor>& colors);
  void MoveFocus(int columns, int rows);
  void TakeHex();
  void Take(const QColor& color);

  QColor m_color;
  QLineEdit* m_hex;
  std::vector<std::vector<QAbstractButton*>> m_fields;
};

/// A button that shows a colour and lets the user choose another one. Its accessible name is what it was
/// given and the colour in hex.
class ColorButton final : public QToolButton {
  Q_OBJECT

 public:
  /// `name` says what the colour is for.
  ColorButton(const shell::StringTable& strings, const QString& name, QWidget* parent = nullptr);

  QColor color() const { return m_color; }
  /// Shows a colour, without the signal. An invalid one is left out.
  void SetColor(const QColor& color);

  /// The colours that were chosen last, newest first, at most one row of the palette.
  const std::vector<QColor>& recent() const { return m_recent; }
  void SetRecent(std::vector<QColor> colors);

  QSize sizeHint() const override;

 signals:
  /// The user has chosen another colour.
  void ColorChanged(const QColor& color);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void OpenPopover();
  void OpenDialog();
  void Choose(const QColor& color);

  const shell::StringTable& m_strings;
  QString m_name;
  QColor m_color = Qt::white;
  std::vector<QColor> m_recent;
  QPointer<ColorPopover> m_popover;
};

}  // namespace quill::ui
