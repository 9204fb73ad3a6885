#pragma once
#include <QString>
#include <functional>

#include "shell/string_table.h"

class QWidget;

namespace quill::ui {

/// Shows an alert: a text and one button. `closed` is called once, however the box goes. The text is plain,
/// never markup; it can be selected, and copied as a whole with the platform's copy key; a long one scrolls.
/// `above` is the window that the box belongs to, if any. GUI thread.
QWidget* ShowAlert(const shell::StringTable& strings, const QString& text, std::function<void()> closed = {},
                   QWidget* above = nullptr);

/// Asks a question with the buttons "NO" (first, the default, and what Escape means) and "YES". `answered` is
/// called once, with true for YES.
QWidget* ShowQuestion(const shell::StringTable& strings, const QString& text,
                      std::function<void(bool)> answered, QWidget* above = nullptr);

}  // namespace quill::ui
