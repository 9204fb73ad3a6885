#include "shell/save_notice.h"

namespace quill::shell {

void SayUnlessSaved(const Services& services, const Status<>& saved) {
  if (saved.ok()) return;
  services.ui.ShowMessage(services.strings.Format("errSaveSettings", {saved.error()}));
}

}  // namespace quill::shell
