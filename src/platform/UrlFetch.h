// Files from the web, fetched only when a person asked for them.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace Quillon {

constexpr std::size_t MostFetchedBytes = 16 * 1024 * 1024;
constexpr long LongestFetch = 30;  ///< seconds

struct UrlFetch {
    virtual ~UrlFetch() = default;
    /// The bytes behind an http or https address, of which `goOn` is asked several times a second; nothing when that
    /// said no. Raises RunTimeError with the reason for what can't be fetched, is too long or lasts too long.
    virtual std::optional<std::string> Fetch(const std::string& url, const std::function<bool()>& goOn) = 0;
};

/// The host of an http or https address, as the question before a fetch shows it; "" for any other text.
std::string HostOfUrl(std::string_view url);

}  // namespace Quillon
