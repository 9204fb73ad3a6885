#pragma once
#include <curl/curl.h>

namespace quill::platform {

/// The functions of libcurl that are used here.
struct CurlLibrary {
  decltype(&::curl_global_init) global_init = nullptr;
  decltype(&::curl_easy_init) easy_init = nullptr;
  decltype(&::curl_easy_reset) easy_reset = nullptr;
  decltype(&::curl_easy_cleanup) easy_cleanup = nullptr;
  decltype(&::curl_easy_setopt) easy_setopt = nullptr;
  decltype(&::curl_easy_getinfo) easy_getinfo = nullptr;
  decltype(&::curl_easy_perform) easy_perform = nullptr;
  decltype(&::curl_easy_strerror) easy_strerror = nullptr;
  decltype(&::curl_slist_append) slist_append = nullptr;
  decltype(&::curl_slist_free_all) slist_free_all = nullptr;
  bool isLoaded = false;  ///< all of them are there, and the library is set up
};

/// libcurl, loaded at the first call and kept: with the libraries that it brings along it takes four
/// milliseconds, which every start of the program would pay if it were linked. Any thread.
const CurlLibrary& Curl();

}  // namespace quill::platform
