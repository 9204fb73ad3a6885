#pragma once
#include <QObject>
#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

namespace quill::ui {

/// Work on another thread of which only the latest counts, such as a preview of fields that change.
///
/// One piece of work runs at a time: a new one ends the one before, begins when that has returned, and takes
/// the place of one that still waits. GUI thread.
class LatestJob final {
 public:
  /// Asked by the work now and then, on its thread; true tells it to return soon with any value.
  using IsCancelled = std::function<bool()>;

  LatestJob() = default;
  /// Tells the work to end and does not wait for it.
  ~LatestJob() { Cancel(); }
  LatestJob(const LatestJob&) = delete;
  LatestJob& operator=(const LatestJob&) = delete;

  /// Runs `T work(const IsCancelled&)` on another thread, and then `done(T)` on the GUI thread unless the job
  /// was cancelled or superseded, or this object is gone, by then. `work` must own what it uses and not touch
  /// widgets. `done` may delete this object or run the next job.
  template <class Work, class Done>
  void Run(Work work, Done done) {
    using T = std::invoke_result_t<Work&, const IsCancelled&>;
    Start({[work = std::move(work)](const IsCancelled& isCancelled) mutable -> std::shared_ptr<void> {
             return std::make_shared<T>(work(isCancelled));
           },
           [done = std::move(done)](const std::shared_ptr<void>& result) mutable {
             done(std::move(*static_cast<T*>(result.get())));
           }});
  }

  /// Ends the job. Its `done` is not called. Does not wait.
  void Cancel();

  /// Between a `Run` and its `done` or the next `Cancel`.
  bool isRunning() const { return m_deliver != nullptr || m_waiting.has_value(); }

 private:
  using Deliver = std::function<void(const std::shared_ptr<void>& result)>;
  struct Job {
    std::function<std::shared_ptr<void>(const IsCancelled&)> work;
    Deliver deliver;
  };
  void Start(Job job);
  void Next();
  void Finish(const std::shared_ptr<void>& result);

  QObject m_receiver;  // as long as it lives, the thread's result is taken
  bool m_isThreadBusy = false;
  std::shared_ptr<std::atomic<bool>> m_isCancelled;  // of the work on the thread
  Deliver m_deliver;                                 // of the work on the thread; null when it does not count
  std::optional<Job> m_waiting;
};

}  // namespace quill::ui
