#pragma once
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "ui/find_replace_view.h"
#include "ui/kit/on_gui.h"
#include "ui/kit/qt_text.h"

namespace quill::ui {

/// A view that writes down what it is asked for and answers, as the real one does, a little later.
class FakeFindReplaceView final : public FindReplaceView {
 public:
  FakeFindReplaceView() {
    m_widget->setAccessibleName("Page");
    m_widget->setFocusPolicy(Qt::StrongFocus);
  }

  QWidget& Widget() override { return *m_widget; }
  void OnLost(std::function<void()> given) override { lost = std::move(given); }
  void Show(const QString& pageHtml, Answered done) override {
    state = {};
    Answer("show " + FromQt(pageHtml), done);
  }
  void Mark(const PageSearch& search, Answered done) override { Answer("mark " + Words(search), done); }
  void Find(const PageSearch& search, SearchDirection direction, Answered done) override {
    const bool isForwards = direction == SearchDirection::Forwards;
    Answer((isForwards ? "next " : "previous ") + Words(search), done);
  }
  void Replace(const PageSearch& search, const QString& replacement, Answered done) override {
    Answer("replace " + Words(search) + " by " + FromQt(replacement), done);
  }
  void ReplaceAll(const PageSearch& search, const QString& replacement, Answered done) override {
    Answer("replace all " + Words(search) + " by " + FromQt(replacement), done);
  }
  void GoToHighlightPosition() override { log.push_back("go to match"); }
  void Changes(GotChanges got) override {
    Later([this, got = std::move(got)] { got(changes); });
  }
  void ShowChange(int number) override { log.push_back("show change " + std::to_string(number)); }
  void GetJson(GotJson got) override {
    Later([this, got = std::move(got)] { got(json); });
  }

  std::vector<std::string> log;
  PageState state;  ///< the answer to what comes next
  std::vector<PageChange> changes;
  QString json;
  std::function<void()> lost;

 private:
  static std::string Words(const PageSearch& search) {
    return FromQt(search.text) + (search.matchesCase ? " (case)" : "");
  }
  void Answer(std::string line, Answered done) {
    log.push_back(std::move(line));
    Later([this, done = std::move(done)] { done(state); });
  }
  void Later(std::function<void()> work) {
    OnGui([alive = std::weak_ptr(m_isAlive), work = std::move(work)] {
      if (!alive.expired()) work();
    });
  }

  std::unique_ptr<QWidget> m_widget = std::make_unique<QWidget>();
  std::shared_ptr<bool> m_isAlive = std::make_shared<bool>(true);
};

}  // namespace quill::ui
