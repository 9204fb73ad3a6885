#pragma once
#include <QMenu>
#include <QPushButton>
#include <QStyleOptionButton>

namespace quill::ui {

/// A button that opens its menu and returns at once, where Qt's own would run an event loop until the menu
/// is closed. GUI thread.
class MenuButton final : public QPushButton {
 public:
  explicit MenuButton(const QString& text) : QPushButton(text) {
    setAutoDefault(false);
    connect(this, &QPushButton::clicked, this, [this] {
      setDown(true);
      const bool mirrored = isRightToLeft();
      const QPoint corner = mapToGlobal(mirrored ? rect().bottomRight() : rect().bottomLeft());
      m_menu.popup(corner - QPoint(mirrored ? m_menu.sizeHint().width() : 0, 0));
    });
    connect(&m_menu, &QMenu::aboutToHide, this, [this] { setDown(false); });
  }

  QMenu& Menu() { return m_menu; }

 protected:
  void initStyleOption(QStyleOptionButton* option) const override {
    QPushButton::initStyleOption(option);
    option->features |= QStyleOptionButton::HasMenu;
  }

 private:
  QMenu m_menu{this};
};

}  // namespace quill::ui
