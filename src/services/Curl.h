#pragma once

#include "base/SystemLibrary.h"

#include <curl/curl.h>

namespace orvex {

/// libcurl's functions under their own names.
class Curl final {
 public:
  /// Loads and starts the library at the first call. Throws `DescribedError` where there is none.
  [[nodiscard]] static const Curl& loaded();

 private:
  Curl();

  SystemLibrary library_{"curl", 4};

 public:
// What the header declares and what is looked up cannot differ.
#define ORVEX_CURL(name) \
  decltype(::curl_##name)* const name = library_.function<decltype(::curl_##name)>("curl_" #name)
  ORVEX_CURL(global_init);
  ORVEX_CURL(easy_init);
  ORVEX_CURL(easy_reset);
  ORVEX_CURL(easy_setopt);
  ORVEX_CURL(easy_getinfo);
  ORVEX_CURL(easy_cleanup);
  ORVEX_CURL(multi_init);
  ORVEX_CURL(multi_add_handle);
  ORVEX_CURL(multi_remove_handle);
  ORVEX_CURL(multi_perform);
  ORVEX_CURL(multi_poll);
  ORVEX_CURL(multi_wakeup);
  ORVEX_CURL(multi_info_read);
  ORVEX_CURL(multi_cleanup);
  ORVEX_CURL(slist_append);
  ORVEX_CURL(slist_free_all);
#undef ORVEX_CURL
};

}  // namespace orvex
