// Fetching by libcurl, which is loaded when something is first fetched: it brings thirty other libraries with it.
#pragma once

#include "platform/UrlFetch.h"

namespace Quillon {

struct CurlFetch : UrlFetch {
    std::optional<std::string> Fetch(const std::string& url, const std::function<bool()>& goOn) override;
};

}  // namespace Quillon
