#include "ui/kit/qt_user_interface.h"

#include <QMetaObject>

#include "ui/kit/alert_box.h"
#include "ui/kit/qt_text.h"
#include "ui/kit/win_input.h"
#include "ui/kit/window_place.h"

namespace quill::ui {

using MaybePath = std::optional<std::filesystem::path>;
using Paths = std::vector<std::filesystem::path>;
using MaybeText = std::optional<std::string>;

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
      [this, panel](const std::function<void(MaybePath)>& answer) {
        ShowSavePanel(m_strings, m_panels, panel, answer);
      },
      std::nullopt);
}

Paths QtUserInterface::AskOpenPaths(const platform::OpenPanel& panel) {
  return m_answers.Ask<Paths>(
      [this, panel](const std::function<void(Paths)>& answer) {
        ShowOpenPanel(m_strings, m_panels, panel, answer);
      },
      {});
}

MaybeText QtUserInterface::AskText(const platform::TextQuestion& question) {
  return m_answers.Ask<MaybeText>(
      [this, question](const std::function<void(MaybeText)>& answer) {
        BringToFront(*new MWinInput(m_strings, question, answer));
      },
      std::nullopt);
}

std::unique_ptr<platform::Progress> QtUserInterface::BeginProgress(std::string_view title) {
  return m_progress.Begin(title);
}

void QtUserInterface::ShowWindow(std::any request) {
  QMetaObject::invokeMethod(
      &m_guiThread,
      [this, request = std::move(request)] {
        if (!m_closed) m_windows.Show(request);
      },
      Qt::QueuedConnection);
}

std::any QtUserInterface::RunWindow(std::any request) {
  return m_answers.Ask<std::any>(
      [this, request = std::move(request)](const std::function<void(std::any)>& answer) {
        if (m_windows.Show(request, answer) == nullptr) answer({});
      },
      {});
}

void QtUserInterface::Tell(std::string_view text) {
  if (!m_closed) ShowAlert(m_strings, ToQt(text));
}

void QtUserInterface::Close() {
  m_closed = true;
  m_progress.Close();
  m_answers.Close();
  CloseAllWindows();
}

}  // namespace quill::ui
