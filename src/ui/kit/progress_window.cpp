#include "ui/kit/progress_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <mutex>
#include <string>

#include "ui/kit/elided_label.h"
#include "ui/kit/qt_text.h"
#include "ui/kit/tool_window.h"
#include "ui/kit/wrapped_label.h"

namespace quill::ui {

namespace {

using namespace std::chrono_literals;
using SteadyClock = std::chrono::steady_clock;

/// A job that is done sooner is not worth a window.
constexpr std::chrono::milliseconds kVisibleAfter = 500ms;

/// Twenty looks a second: smooth for the eye, nothing for the processor.
constexpr std::chrono::milliseconds kLook = 50ms;

/// Where the job's thread writes and the window reads.
struct Job {
  struct Step {
    double fraction = -1;
    std::string detail;
  };

  void Set(double fraction, std::string_view detail) {
    const std::lock_guard lock(mutex);
    step.fraction = fraction;
    step.detail.assign(detail);
  }
  Step Look() {
    const std::lock_guard lock(mutex);
    return step;
  }

  std::atomic<bool> cancelled = false;
  std::atomic<bool> over = false;
  std::mutex mutex;
  Step step;
};

/// True when this program is the active one but the user types into none of its windows.
bool KeyboardIsFree() {
  return QGuiApplication::applicationState() == Qt::ApplicationActive &&
         QGuiApplication::focusWindow() == nullptr;
}

class ProgressWindow final : public ToolWindow {
 public:
  ProgressWindow(const shell::StringTable& strings, const QString& title, std::shared_ptr<Job> job)
      : ToolWindow(strings, "appTitle"),
        m_job(std::move(job)),
        m_bar(new QProgressBar),
        m_detail(new ElidedLabel),
        m_cancel(new QPushButton(Text("strCancel"))) {
    setWindowTitle(title);
    setAttribute(Qt::WA_ShowWithoutActivating, !KeyboardIsFree());
    m_bar->setTextVisible(false);
    m_bar->setAccessibleName(title);
    m_bar->setMinimumWidth(fontMetrics().averageCharWidth() * 60);
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    row->addWidget(m_cancel);
    auto* column = new QVBoxLayout(this);
    column->addWidget(NewWrappedLabel(title));
    column->addWidget(m_bar);
    column->addWidget(m_detail);
    column->addStretch(1);
    column->addLayout(row);
    m_cancel->setAutoDefault(false);
    connect(m_cancel, &QPushButton::clicked, this, [this] { reject(); });
    auto* look = new QTimer(this);
    connect(look, &QTimer::timeout, this, [this] { Look(); });
    look->start(kLook);
    Look();
  }

  /// Cancel and Escape: the window stays and says that the job is being stopped.
  void reject() override {
    m_job->cancelled = true;
    m_cancel->setEnabled(false);
    Look();
  }

 protected:
  /// The close button cancels, too, but the window goes: one that refuses would keep the program from ending.
  void closeEvent(QCloseEvent* event) override {
    m_job->cancelled = true;
    event->accept();
  }

 private:
  void Look() {
    if (m_job->over) {
      close();
      return;
    }
    const Job::Step step = m_job->Look();
    const bool stopping = m_job->cancelled;
    constexpr int kSteps = 1000;
    if (stopping || !(step.fraction >= 0)) {
      m_bar->setRange(0, 0);
    } else {
      m_bar->setRange(0, kSteps);
      m_bar->setValue(static_cast<int>(std::lround(std::min(step.fraction, 1.0) * kSteps)));
    }
    m_detail->SetText(stopping ? Text("strStopping") : ToQt(step.detail));
  }

  std::shared_ptr<Job> m_job;
  QProgressBar* m_bar;
  ElidedLabel* m_detail;
  QPushButton* m_cancel;
};

/// The job's end of it.
class RunningJob final : public platform::Progress {
 public:
  RunningJob(std::shared_ptr<Job> job, std::shared_ptr<const std::atomic<bool>> closed)
      : m_job(std::move(job)), m_closed(std::move(closed)) {}
  ~RunningJob() override { m_job->over = true; }

  void Set(double fraction, std::string_view detail) override { m_job->Set(fraction, detail); }
  bool Cancelled() const override { return m_job->cancelled || *m_closed; }

 private:
  std::shared_ptr<Job> m_job;
  std::shared_ptr<const std::atomic<bool>> m_closed;
};

}  // namespace

std::unique_ptr<platform::Progress> ProgressWindows::Begin(std::string_view title) {
  auto job = std::make_shared<Job>();
  const auto show = [this, job, text = ToQt(title)] {
    if (job->over || job->cancelled || *m_closed) return;
    auto* window = new ProgressWindow(m_strings, text, job);
    window->show();
    window->raise();
  };
  const auto startTimer = [this, show, visibleAt = SteadyClock::now() + kVisibleAfter] {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(visibleAt - SteadyClock::now());
    QTimer::singleShot(std::max(left, 0ms), &m_guiThread, show);
  };
  QMetaObject::invokeMethod(&m_guiThread, startTimer, Qt::QueuedConnection);
  return std::make_unique<RunningJob>(std::move(job), m_closed);
}

}  // namespace quill::ui
