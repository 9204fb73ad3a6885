#include "platform/curl/curl_library.h"

#include <dlfcn.h>

namespace quill::platform {
namespace {

#ifdef __APPLE__
constexpr const char* kFile = "libcurl.4.dylib";
#else
constexpr const char* kFile = "libcurl.so.4";
#endif

template <class Function>
bool Find(void* library, const char* name, Function& function) {
  function = reinterpret_cast<Function>(::dlsym(library, name));
  return function != nullptr;
}

CurlLibrary Load() {
  CurlLibrary curl;
  void* library = ::dlopen(kFile, RTLD_LAZY | RTLD_LOCAL);
  if (library == nullptr) return curl;
  const bool isComplete = Find(library, "curl_global_init", curl.global_init) &&
                          Find(library, "curl_easy_init", curl.easy_init) &&
                          Find(library, "curl_easy_reset", curl.easy_reset) &&
                          Find(library, "curl_easy_cleanup", curl.easy_cleanup) &&
                          Find(library, "curl_easy_setopt", curl.easy_setopt) &&
                          Find(library, "curl_easy_getinfo", curl.easy_getinfo) &&
                          Find(library, "curl_easy_perform", curl.easy_perform) &&
                          Find(library, "curl_easy_strerror", curl.easy_strerror) &&
                          Find(library, "curl_slist_append", curl.slist_append) &&
                          Find(library, "curl_slist_free_all", curl.slist_free_all);
  curl.isLoaded = isComplete && curl.global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
  return curl;
}

}  // namespace

const CurlLibrary& Curl() {
  static const CurlLibrary library = Load();
  return library;
}

}  // namespace quill::platform
