#pragma once
#include <QStackedWidget>
#include <functional>

#include "ui/equation_view.h"

class QWebEngineProfile;
class QWebEngineView;

namespace quill::equation {

class EquationPage;
class MathJaxSource;
class RequestGuard;

/// The preview's widget: one view above the other, each with its page. Its colours follow the palette.
class EquationStack final : public QStackedWidget {
  Q_OBJECT
 public:
  explicit EquationStack(const ui::EquationOptions& options);
  ~EquationStack() override;

  EquationPage& Page(tools::EquationForm form);
  void Raise(tools::EquationForm form);

  const MathJaxSource& Source() const { return *m_source; }
  const RequestGuard& Guard() const { return *m_guard; }

 protected:
  void changeEvent(QEvent* event) override;

 private:
  QWebEngineView* Add(tools::EquationForm form, const ui::EquationOptions& options);
  void ApplyColors();

  QWebEngineProfile* m_profile;
  MathJaxSource* m_source;
  RequestGuard* m_guard;
  QWebEngineView* m_native;
  QWebEngineView* m_picture;
};

/// The equation view as the rest of the program sees it. Callbacks reach nobody after its end.
class Equations final : public QObject, public ui::EquationView {
  Q_OBJECT
 public:
  explicit Equations(const ui::EquationOptions& options);
  ~Equations() override;

  QWidget& Widget() override { return *m_stack; }
  void Warm(tools::EquationForm form) override;
  void Show(const QString& formula, tools::EquationForm form, Shown done) override;
  void Native(const QString& formula, GotMathMl done) override;
  void Picture(const QString& formula, GotPicture done) override;
  QStringList RefusedAddresses() const override;
  QStringList MissingFiles() const override;

 private:
  /// Calls `fail` with the reason later when there is no MathJax at all.
  bool FailWithoutMathJax(const std::function<void(const QString&)>& fail);

  const shell::StringTable& m_strings;
  bool m_hasMathJax;
  int m_shown = 0;  ///< counts the calls of `Show`
  EquationStack* m_stack;
};

}  // namespace quill::equation
