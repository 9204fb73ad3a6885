#pragma once
#include <QByteArray>
#include <QString>
#include <QtPlugin>
#include <filesystem>
#include <functional>
#include <memory>

#include "base/endpoints.h"
#include "base/result.h"
#include "platform/practice/practice_target.h"
#include "shell/string_table.h"
#include "ui/equation_view.h"
#include "ui/find_replace_view.h"
#include "ui/sign_in_view.h"

class QWidget;

namespace quill::ui {

/// What the practice notebook needs. The string table must outlive the notebook.
struct PracticeOptions {
  std::filesystem::path folder;  ///< the pages' folder, made when it is missing
  const shell::StringTable& strings;
  QString documentHost = "d.docs.live.net";          ///< host of the client links of pages
  QString webAddress = "https://onedrive.live.com";  ///< beginning of the web links of pages
};

/// The practice notebook from within the program: for the guided tour and for trials. GUI thread. Every
/// method returns at once and calls `done` when the page has done it, in the order of the calls; `done` gets
/// a false or empty value when it could not be done or the page did not answer in five seconds.
class PracticeController {
 public:
  using Done = std::function<void(bool)>;
  using GotText = std::function<void(QString)>;

  virtual ~PracticeController() = default;

  /// Opens the page with this title; done when it is shown.
  virtual void OpenPage(const QString& title, Done done) = 0;

  /// Selects the first occurrence of a text in the page's body; a line feed stands for a paragraph's end.
  virtual void SelectText(const QString& text, Done done) = 0;

  /// Selects the first element that a CSS selector finds, as a whole ("table", "ul", "p:nth-of-type(4)").
  virtual void SelectBlock(const QString& selector, Done done) = 0;

  /// Selects everything below the title.
  virtual void SelectPage(Done done) = 0;

  /// Puts the caret behind the page's last paragraph.
  virtual void CaretToEnd(Done done) = 0;

  /// The selection's HTML as a copy would write it between the fragment marks; the clipboard stays.
  virtual void SelectionFragment(GotText done) = 0;

  /// The HTML of the page's body.
  virtual void PageHtml(GotText done) = 0;

  /// The text of the page's body as it is seen.
  virtual void VisibleText(GotText done) = 0;

  /// The title line's text.
  virtual void PageTitle(GotText done) = 0;

  /// The whole window as a PNG file's bytes; empty while it has no window.
  virtual QByteArray Picture() = 0;
};

/// The practice notebook: a window with a list of pages and one editable page, kept on disk. Made, used and
/// destroyed on the GUI thread; `Target()` may be used on the command thread until the notebook is destroyed.
/// Closing its window hides it; what was typed last is saved then and when it is destroyed.
class PracticeNotebook {
 public:
  virtual ~PracticeNotebook() = default;

  virtual QWidget& Window() = 0;
  virtual platform::practice::PracticeTarget& Target() = 0;
  virtual PracticeController& Controller() = 0;

  /// Shows the window in front.
  virtual void Open() = 0;

  /// The addresses of a service that serves this notebook's pages as the OneNote service serves a user's. It
  /// is started at the first call, on a free port of this computer, and ends with the notebook.
  virtual Result<Endpoints> StartService() = 0;
};

/// Everything that needs the web engine, behind an interface without its types: the tray program does not
/// link the engine and loads it with the first web view (`ui/web_plugin.h`).
class WebViews {
 public:
  virtual ~WebViews() = default;

  /// Fails when the folder cannot be used.
  virtual Result<std::unique_ptr<PracticeNotebook>> CreatePracticeNotebook(
      const PracticeOptions& options) = 0;

  /// To be made once and kept (`EquationView`). Loads no page yet; the folder of MathJax is not looked at.
  virtual std::unique_ptr<EquationView> CreateEquationView(const EquationOptions& options) = 0;

  /// One for each sign-in: its cookies end with it. The string table must outlive the view.
  virtual std::unique_ptr<SignInView> CreateSignInView(const shell::StringTable& strings) = 0;

  /// One for each editor of a page. The string table must outlive the view.
  virtual std::unique_ptr<FindReplaceView> CreateFindReplaceView(const shell::StringTable& strings) = 0;
};

}  // namespace quill::ui

Q_DECLARE_INTERFACE(quill::ui::WebViews, "quillmenu.WebViews/3")
