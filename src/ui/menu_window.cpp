#include "ui/menu_window.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>

#include "ui/kit/qt_text.h"
#include "ui/quill_icon.h"

namespace quill::ui {

MenuWindow::MenuWindow(const shell::StringTable& strings, QMenu& menu, std::function<void()> onFind)
    : QWidget(nullptr, Qt::Window | Qt::WindowStaysOnTopHint),
      m_strings(strings),
      m_menuButton(new QPushButton(this)),
      m_findButton(new QPushButton(this)) {
  m_menuButton->setMenu(&menu);
  m_menuButton->setIcon(QuillIcon(palette().color(QPalette::Button).lightness() < 128));
  connect(m_findButton, &QPushButton::clicked, this, [onFind = std::move(onFind)] { onFind(); });
  auto* row = new QHBoxLayout(this);
  row->addWidget(m_menuButton);
  row->addWidget(m_findButton);
  setWindowIcon(QuillIcon(false));
  Retranslate();
}

void MenuWindow::Retranslate() {
  setWindowTitle(QStringLiteral("Quill Menu"));
  m_menuButton->setText(ToQt(m_strings.Text("strMenuButton")));
  m_findButton->setText(ToQt(m_strings.Text("strFindButton")));
  setFixedSize(sizeHint());
}

void MenuWindow::ShowMenu() {
  showNormal();
  raise();
  activateWindow();
  m_menuButton->setFocus();
  m_menuButton->menu()->popup(m_menuButton->mapToGlobal(QPoint(0, m_menuButton->height())));
}

void MenuWindow::closeEvent(QCloseEvent* event) {
  // A program that quits closes its windows for good.
  if (!event->spontaneous()) return QWidget::closeEvent(event);
  event->ignore();
  showMinimized();
}

void MenuWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) return showMinimized();
  QWidget::keyPressEvent(event);
}

}  // namespace quill::ui
