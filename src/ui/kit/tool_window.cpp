#include "ui/kit/tool_window.h"

#include <QKeyEvent>

#include "ui/kit/qt_text.h"

namespace quill::ui {

ToolWindow::ToolWindow(const shell::StringTable& strings, std::string_view titleKey)
    : QDialog(nullptr, Qt::Window), m_strings(strings) {
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowTitle(Text(titleKey));
}

QString ToolWindow::Text(std::string_view key) const {
  return ToQt(m_strings.Text(key));
}

QString ToolWindow::Format(std::string_view key, const std::vector<std::string>& arguments) const {
  return ToQt(m_strings.Format(key, arguments));
}

void ToolWindow::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Close)) {
    close();
  } else {
    QDialog::keyPressEvent(event);
  }
}

void ToolWindow::showEvent(QShowEvent* event) {
  if (!event->spontaneous() && !m_placed) {
    m_placed = true;
    CentreOnPointerScreen(*this);
  }
  QDialog::showEvent(event);
}

}  // namespace quill::ui
