#pragma once
#include <QCoreApplication>
#include <QMetaObject>
#include <functional>
#include <utility>

namespace quill::ui {

/// Runs something on the GUI thread when it comes round to it; in the order of the calls. Any thread.
inline void OnGui(std::function<void()> work) {
  QMetaObject::invokeMethod(QCoreApplication::instance(), std::move(work), Qt::QueuedConnection);
}

}  // namespace quill::ui
