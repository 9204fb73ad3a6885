#include "ui/qt_user_interface.h"

#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>

namespace quill::ui {
namespace {

QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// An alert box that deletes itself; plain text, so that a file's name is never read as markup.
QMessageBox* NewBox(const shell::StringTable& strings, const QString& text) {
  auto* box = new QMessageBox;
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->setWindowTitle(ToQt(strings.Text("appTitle")));
  box->setAccessibleName(text);
  box->setTextFormat(Qt::PlainText);
  box->setText(text);
  return box;
}

void BringToFront(QWidget* window) {
  window->show();
  window->raise();
  window->activateWindow();
}

void ShowAlert(const shell::StringTable& strings, const QString& text, std::function<void()> closed) {
  QMessageBox* box = NewBox(strings, text);
  box->setIcon(QMessageBox::Information);
  box->addButton(ToQt(strings.Text("strOk")), QMessageBox::AcceptRole);
  QObject::connect(box, &QDialog::finished, box, [closed = std::move(closed)] { closed(); });
  BringToFront(box);
}

void ShowQuestion(const shell::StringTable& strings, const QString& text,
                  std::function<void(bool)> answered) {
  QMessageBox* box = NewBox(strings, text);
  box->setIcon(QMessageBox::Question);
  QPushButton* no = box->addButton(ToQt(strings.Text("strNo")), QMessageBox::RejectRole);
  QPushButton* yes = box->addButton(ToQt(strings.Text("strYes")), QMessageBox::AcceptRole);
  box->setDefaultButton(no);
  box->setEscapeButton(no);
  QObject::connect(box, &QDialog::finished, box,
                   [box, yes, answered = std::move(answered)] { answered(box->clickedButton() == yes); });
  BringToFront(box);
}

using MaybePath = std::optional<std::filesystem::path>;

void ShowSavePanel(const platform::SavePanel& panel, std::function<void(MaybePath)> answered) {
  auto* dialog = new QFileDialog(nullptr, ToQt(panel.title), QDir::homePath());
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setAcceptMode(QFileDialog::AcceptSave);
  dialog->setDefaultSuffix(ToQt(panel.extension));
  dialog->setNameFilter(QStringLiteral("*.%1").arg(ToQt(panel.extension)));
  if (!panel.defaultName.empty()) dialog->selectFile(ToQt(panel.defaultName));
  QObject::connect(dialog, &QDialog::finished, dialog, [dialog, answered = std::move(answered)](int result) {
    const QStringList files = dialog->selectedFiles();
    if (result != QDialog::Accepted || files.isEmpty()) return answered(std::nullopt);
    answered(std::filesystem::path(files.first().toStdString()));
  });
  BringToFront(dialog);
}

}  // namespace

void QtUserInterface::ShowMessage(std::string_view text) {
  m_answers.Ask<bool>(
      [this, message = ToQt(text)](const std::function<void(bool)>& answer) {
        ShowAlert(m_strings, message, [answer] { answer(true); });
      },
      true);
}

bool QtUserInterface::AskYesNo(std::string_view question) {
  return m_answers.Ask<bool>(
      [this, text = ToQt(question)](const std::function<void(bool)>& answer) {
        ShowQuestion(m_strings, text, answer);
      },
      false);
}

MaybePath QtUserInterface::AskSavePath(const platform::SavePanel& panel) {
  return m_answers.Ask<MaybePath>(
      [panel](const std::function<void(MaybePath)>& answer) { ShowSavePanel(panel, answer); }, std::nullopt);
}

void QtUserInterface::Tell(std::string_view text) {
  ShowAlert(m_strings, ToQt(text), [] {});
}

}  // namespace quill::ui
