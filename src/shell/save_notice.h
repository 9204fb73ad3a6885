#pragma once
#include "base/result.h"
#include "shell/services.h"

namespace quill::shell {

/// Tells the user that the settings could not be saved, and why. Nothing for success.
void SayUnlessSaved(const Services& services, const Status<>& saved);

}  // namespace quill::shell
