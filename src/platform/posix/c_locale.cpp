#include "platform/posix/c_locale.h"

#include <locale.h>
#if defined(__APPLE__)
#include <xlocale.h>
#endif

namespace quill::platform {

struct CLocaleScope::Locale {
  locale_t c = ::newlocale(LC_ALL_MASK, "C", static_cast<locale_t>(nullptr));
  locale_t before = ::uselocale(c);
};

CLocaleScope::CLocaleScope() : m_locale(std::make_unique<Locale>()) {}

CLocaleScope::~CLocaleScope() {
  ::uselocale(m_locale->before);
  if (m_locale->c != static_cast<locale_t>(nullptr)) ::freelocale(m_locale->c);
}

}  // namespace quill::platform
