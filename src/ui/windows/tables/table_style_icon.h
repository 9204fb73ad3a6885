#pragma once
#include <QIcon>

#include "tools/table_styles.h"

namespace quill::ui {

/// A small empty table in the colours of a style. Painted anew for every size and screen, so that its lines
/// are always sharp.
QIcon TableStyleIcon(const tools::TableStyle& style);

}  // namespace quill::ui
