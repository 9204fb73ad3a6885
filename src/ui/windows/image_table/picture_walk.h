#pragma once
#include <QObject>
#include <atomic>
#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tools/picture_list.h"

namespace quill::ui {

/// Finds the pictures behind files and folders on another thread, one request after the other. Its end stops
/// the walk that is under way. GUI thread.
class PictureWalk final : public QObject {
  Q_OBJECT
 public:
  /// `tools::ExpandPictures`, or what stands for it.
  using Expand = std::function<tools::PictureList(const std::vector<std::string>& paths,
                                                  const tools::WalkProgress& progress)>;
  using Done = std::function<void(tools::PictureList)>;

  PictureWalk(Expand expand, QObject* parent);
  ~PictureWalk() override;

  /// `done` gets the pictures unless this object is gone by then.
  void Start(std::vector<std::string> paths, Done done);

  /// Ends the walk soon; what it has found is handed over. Requests that still wait are handed over as
  /// stopped, with nothing found.
  void Stop();

  bool isRunning() const { return m_present != nullptr; }
  /// How many pictures the present request has found.
  std::size_t found() const;

 signals:
  void Began();
  /// All requests are answered.
  void Ended();

 private:
  struct Request {
    std::vector<std::string> paths;
    Done done;
  };
  /// What the two threads share.
  struct State {
    std::atomic<bool> isStopped = false;
    std::atomic<std::size_t> found = 0;
  };
  void Next();
  void Finish(const Done& done, tools::PictureList list);

  Expand m_expand;
  std::deque<Request> m_waiting;
  std::shared_ptr<State> m_present;
};

}  // namespace quill::ui
