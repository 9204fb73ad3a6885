#include "shell/not_built_yet.h"

namespace quill::shell {

void SayNotBuiltYet(Services& services) {
  services.ui.ShowMessage(services.strings.Text("msgNotBuiltYet"));
}

}  // namespace quill::shell
