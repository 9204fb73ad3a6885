#pragma once
#include "shell/services.h"

namespace quill::shell {

/// The one answer of everything whose tool does not exist yet. The rows that lead here are counted by a test.
void SayNotBuiltYet(Services& services);

}  // namespace quill::shell
