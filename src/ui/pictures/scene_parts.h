#pragma once
#include <QList>
#include <QPointer>
#include <QWidget>

#include "ui/kit/window_place.h"
#include "ui/pictures/scenes.h"

namespace quill::ui {

/// The picture is this one window.
inline Look Just(QWidget* window) {
  return [window = QPointer(window)] { return window ? QList<QWidget*>{window} : QList<QWidget*>{}; };
}

inline Look InFront(QWidget* window) {
  BringToFront(*window);
  return Just(window);
}

}  // namespace quill::ui
