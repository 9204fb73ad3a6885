#pragma once
#include <QCoreApplication>
#include <QMetaObject>
#include <QPointer>
#include <QThreadPool>
#include <functional>
#include <memory>
#include <utility>

namespace quill::ui {

/// Runs `work` on another thread and hands what it returns to `done` on the GUI thread, unless `receiver` is
/// gone by then. `work` must not touch widgets, and it must come to an end: the threads of `pool` are few.
/// GUI thread.
template <class T>
void RunInBackground(QObject* receiver, std::function<T()> work, std::function<void(T)> done,
                     QThreadPool& pool = *QThreadPool::globalInstance()) {
  // The pointer is only looked at on the GUI thread, where the receiver lives and dies.
  pool.start([alive = QPointer<QObject>(receiver), work = std::move(work), done = std::move(done)]() mutable {
    auto result = std::make_shared<T>(work());
    QMetaObject::invokeMethod(
        QCoreApplication::instance(),
        [alive, result, done = std::move(done)] {
          if (!alive.isNull()) done(std::move(*result));
        },
        Qt::QueuedConnection);
  });
}

}  // namespace quill::ui
