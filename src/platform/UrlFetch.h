// Files from the web, fetched only when a person asked for them.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "platform/RunTimeError.h"

namespace Quillon {

constexpr std::size_t MostFetchedBytes = 16 * 1024 * 1024;
constexpr long LongestFetch = 30;  ///< seconds

/// The address leads on to another host than the one that was asked about.
struct FetchMoved : RunTimeError {
    FetchMoved(const std::string& from, const std::string& to);
    std::string Url;  ///< where it leads
};

struct UrlFetch {
    virtual ~UrlFetch() = default;
    /// The bytes behind an http or https address, of which `goOn` is asked several times a second; nothing when that
    /// said no. Raises RunTimeError with the reason for what can't be fetched, is too long or lasts too long, and
    /// FetchMoved for a redirection to another host.
    virtual std::optional<std::string> Fetch(const std::string& url, const std::function<bool()>& goOn) = 0;
};

/// The host of an http or https address, as the question before a fetch shows it; "" for any other text.
std::string HostOfUrl(std::string_view url);

}  // namespace Quillon
