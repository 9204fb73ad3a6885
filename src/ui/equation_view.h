#pragma once
#include <QString>
#include <QStringList>
#include <chrono>
#include <filesystem>
#include <functional>

#include "base/result.h"
#include "shell/string_table.h"
#include "tools/equation.h"

class QWidget;

namespace quill::ui {

/// What an equation view needs. The string table must outlive the view.
struct EquationOptions {
  /// MathJax's files (`tools::FindMathJax`); empty when they are not installed.
  std::filesystem::path mathJax;
  const shell::StringTable& strings;
  /// "https://host", to load MathJax from there instead; empty for the installed files, and then nothing is
  /// ever requested from a network.
  QString networkAddress = {};
  std::chrono::milliseconds startDeadline = std::chrono::seconds(20);   ///< for a page with its MathJax
  std::chrono::milliseconds answerDeadline = std::chrono::seconds(10);  ///< for one equation
};

/// An equation drawn as a PNG.
struct EquationPicture {
  QString dataUrl;        ///< "data:image/png;base64,…", checked; `tools::kPictureScale` pixels a CSS pixel
  tools::ShownSize size;  ///< in CSS pixels
};

/// Typesets formulas and shows them. Everything on the GUI thread; every method returns at once, and its
/// callback is called later. Formulas are plain, without delimiters, and always set as display math.
///
/// Made once and kept: the pages stay warm, so that an equation takes some ten milliseconds instead of half a
/// second; destroyed before the QApplication. Destroying the view forgets all callbacks that are still open.
class EquationView {
 public:
  /// What MathJax says against the formula, in its own words; empty when it says nothing.
  using Shown = std::function<void(const QString& problem)>;
  using GotMathMl = std::function<void(const Result<std::string>&)>;
  using GotPicture = std::function<void(const Result<EquationPicture>&)>;

  virtual ~EquationView() = default;

  /// The preview. Whoever puts it into a window takes it out again (`setParent(nullptr)`) before that is
  /// destroyed. It may take the focus, for scrolling, but links and menus in it do nothing.
  virtual QWidget& Widget() = 0;

  /// Loads the page of a form, so that its first equation comes sooner.
  virtual void Warm(tools::EquationForm form) = 0;

  /// Shows a formula; an empty one empties the preview. The last call wins: the callbacks of calls that were
  /// overtaken are never called.
  virtual void Show(const QString& formula, tools::EquationForm form, Shown done) = 0;

  /// The MathML of a formula as MathJax writes it (for `tools::ConvertMathMLToONMathML`). Needs no window.
  /// Fails with a text for the reader: MathJax's words for a broken formula, or why there is no answer. What
  /// the preview shows in that form may become this formula.
  virtual void Native(const QString& formula, GotMathMl done) = 0;

  /// The picture of a formula, likewise.
  virtual void Picture(const QString& formula, GotPicture done) = 0;

  /// Addresses that pages asked for and did not get, because they are not allowed or not there; the first
  /// hundred of each kind. For diagnosis.
  virtual QStringList RefusedAddresses() const = 0;
  virtual QStringList MissingFiles() const = 0;
};

}  // namespace quill::ui
