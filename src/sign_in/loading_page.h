#pragma once
#include <QString>

#include "shell/string_table.h"

namespace quill::sign_in {

/// The page that says which service is being opened, as HTML without scripts, in dark or light colours.
/// `host` is shown as text, whatever it holds.
QString LoadingPage(const shell::StringTable& strings, const QString& host, bool dark);

}  // namespace quill::sign_in
