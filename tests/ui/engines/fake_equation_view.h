#pragma once
#include <QWidget>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "ui/equation_view.h"

namespace quill::ui {

/// An equation view that writes down what it is asked for and answers when the test says so. As the real one
/// does, it drops the callbacks of formulas that were overtaken.
class FakeEquationView final : public EquationView {
 public:
  struct Asked {
    std::string formula;
    tools::EquationForm form;
  };

  QWidget& Widget() override { return *m_widget; }
  void Warm(tools::EquationForm) override {}
  void Show(const QString& formula, tools::EquationForm form, Shown done) override {
    shown.push_back({formula.toStdString(), form});
    m_shown = std::move(done);
    if (answersShows) AnswerShow(formula.isEmpty() ? brokenness : problem);
  }
  void Native(const QString& formula, GotMathMl done) override {
    made.push_back({formula.toStdString(), tools::EquationForm::Native});
    native = std::move(done);
  }
  void Picture(const QString& formula, GotPicture done) override {
    made.push_back({formula.toStdString(), tools::EquationForm::Picture});
    picture = std::move(done);
  }
  QStringList RefusedAddresses() const override { return {}; }
  QStringList MissingFiles() const override { return {}; }

  /// Answers the last `Show`.
  void AnswerShow(const QString& words) {
    if (Shown done = std::exchange(m_shown, nullptr)) done(words);
  }

  bool answersShows = true;
  QString brokenness;  ///< what is wrong with the view itself
  QString problem;     ///< what is wrong with formulas
  std::vector<Asked> shown;
  std::vector<Asked> made;
  GotMathMl native;
  GotPicture picture;

 private:
  std::unique_ptr<QWidget> m_widget = std::make_unique<QWidget>();
  Shown m_shown;
};

}  // namespace quill::ui
