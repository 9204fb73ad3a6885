#pragma once
#include <QObject>
#include <atomic>
#include <memory>

#include "platform/practice/practice_target.h"
#include "practice/practice_window.h"
#include "practice/service/practice_service.h"
#include "ui/web_views.h"

namespace quill::practice {

/// The notebook as the rest of the program sees it: its window, the scripts' way in, and the tour's.
class Notebook final : public QObject,
                       public ui::PracticeNotebook,
                       public platform::practice::PracticeTarget,
                       public ui::PracticeController {
  Q_OBJECT
 public:
  explicit Notebook(std::unique_ptr<PracticeWindow> window);
  ~Notebook() override;

  // ui::PracticeNotebook
  QWidget& Window() override { return *m_window; }
  platform::practice::PracticeTarget& Target() override { return *this; }
  ui::PracticeController& Controller() override { return *this; }
  void Open() override;
  Result<Endpoints> StartService() override;

  // PracticeTarget, on the command thread
  bool IsOpen() override { return m_isOpen; }
  platform::ScriptProblem Show() override;
  platform::ScriptProblem Press(const platform::practice::Keys& keys) override;
  platform::ScriptProblem OpenLink(std::string_view link) override;

  // PracticeController
  void OpenPage(const QString& title, Done done) override;
  void SelectText(const QString& text, Done done) override;
  void SelectBlock(const QString& selector, Done done) override;
  void SelectPage(Done done) override;
  void CaretToEnd(Done done) override;
  void SelectionFragment(GotText done) override;
  void PageHtml(GotText done) override;
  void VisibleText(GotText done) override;
  void PageTitle(GotText done) override;
  QByteArray Picture() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Select(const char* function, const QVariantList& arguments, Done done);
  void Get(const char* function, GotText done);

  std::unique_ptr<PracticeWindow> m_window;
  std::unique_ptr<PracticeService> m_service;
  std::atomic<bool> m_isOpen = false;
};

}  // namespace quill::practice
