#pragma once
#include <memory>

namespace quill::platform {

/// While it lives, this thread formats and reads numbers as the "C" locale does, whatever locale the
/// process has. Around libraries whose file formats use `atof` or `printf`: with a decimal comma they read
/// 0.5 as 0. Other threads are not touched.
class CLocaleScope {
 public:
  CLocaleScope();
  ~CLocaleScope();
  CLocaleScope(const CLocaleScope&) = delete;
  CLocaleScope& operator=(const CLocaleScope&) = delete;

 private:
  struct Locale;
  std::unique_ptr<Locale> m_locale;
};

}  // namespace quill::platform
