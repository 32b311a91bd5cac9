#include "platform/UrlFetch.h"

#include <algorithm>

namespace Quillon {

FetchMoved::FetchMoved(const std::string& from, const std::string& to)
    : RunTimeError(68, from + ": it was moved to " + HostOfUrl(to)), Url(to) {}

std::string HostOfUrl(std::string_view url) {
    const auto startsWith = [&](std::string_view scheme) {
        return url.size() > scheme.size() && std::equal(scheme.begin(), scheme.end(), url.begin(), [](char a, char b) {
                   return a == b || (b >= 'A' && b <= 'Z' && a == b - 'A' + 'a');
               });
    };
    const std::size_t scheme = startsWith("http://") ? 7 : startsWith("https://") ? 8 : 0;
    // A blank, or a sign that programs read differently, could show another host than the one that is asked.
    const bool plain = std::ranges::all_of(url, [](char c) { return c > ' ' && c < 0x7F && c != '\\'; });
    if (scheme == 0 || !plain) return "";
    url.remove_prefix(scheme);
    url = url.substr(0, url.find_first_of("/?#"));
    if (const std::size_t user = url.rfind('@'); user != std::string_view::npos) url.remove_prefix(user + 1);
    if (!url.starts_with('[')) url = url.substr(0, url.find(':'));
    return std::string(url);
}

}  // namespace Quillon
