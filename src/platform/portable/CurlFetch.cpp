#include "platform/portable/CurlFetch.h"

#include <curl/curl.h>
#include <dlfcn.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <type_traits>

#include "platform/RunTimeError.h"

namespace Quillon {

namespace {

/// What of the library is used. It stays loaded for the program's life, as it is made to.
struct Curl {
    CURLcode (*GlobalInit)(long);
    CURL* (*Init)();
    CURLcode (*Set)(CURL*, CURLoption, ...);
    CURLcode (*Perform)(CURL*);
    CURLcode (*Info)(CURL*, CURLINFO, ...);
    void (*Cleanup)(CURL*);
    const char* (*Text)(CURLcode);
    bool Complete = false;
};

Curl Load() {
    Curl curl{};
    void* const library = ::dlopen(QUILLON_CURL, RTLD_NOW | RTLD_LOCAL);
    if (!library) return curl;
    bool complete = true;
    const auto find = [&](const char* name, auto*& function) {
        function = reinterpret_cast<std::remove_reference_t<decltype(function)>>(::dlsym(library, name));
        complete = complete && function;
    };
    find("curl_global_init", curl.GlobalInit);
    find("curl_easy_init", curl.Init);
    find("curl_easy_setopt", curl.Set);
    find("curl_easy_perform", curl.Perform);
    find("curl_easy_getinfo", curl.Info);
    find("curl_easy_cleanup", curl.Cleanup);
    find("curl_easy_strerror", curl.Text);
    curl.Complete = complete && curl.GlobalInit(CURL_GLOBAL_DEFAULT) == CURLE_OK;
    return curl;
}

struct Fetched {
    std::string Bytes;
    bool TooLong = false;
    bool Stopped = false;
    const std::function<bool()>* GoOn = nullptr;
};

std::size_t Receive(const char* bytes, std::size_t size, std::size_t count, void* into) {
    auto& fetched = *static_cast<Fetched*>(into);
    fetched.TooLong = fetched.TooLong || size * count > MostFetchedBytes - fetched.Bytes.size();
    if (fetched.TooLong) return 0;
    fetched.Bytes.append(bytes, size * count);
    return size * count;
}

int Progress(void* into, curl_off_t, curl_off_t, curl_off_t, curl_off_t) {
    auto& fetched = *static_cast<Fetched*>(into);
    fetched.Stopped = *fetched.GoOn && !(*fetched.GoOn)();
    return fetched.Stopped ? 1 : 0;
}

[[noreturn]] void Refuse(const std::string& url, const std::string& why) {
    constexpr int DeviceUnavailable = 68;
    throw RunTimeError(DeviceUnavailable, url + ": " + why);
}

}  // namespace

std::optional<std::string> CurlFetch::Fetch(const std::string& url, const std::function<bool()>& goOn) {
    static const Curl curl = Load();
    if (HostOfUrl(url).empty()) Refuse(url, "not an http or https address");
    if (!curl.Complete) Refuse(url, "libcurl is not on this machine");
    const std::unique_ptr<CURL, void (*)(CURL*)> transfer(curl.Init(), curl.Cleanup);
    if (!transfer) Refuse(url, "out of memory");
    Fetched fetched;
    fetched.GoOn = &goOn;
    const auto set = [&](CURLoption option, auto value) { curl.Set(transfer.get(), option, value); };
    set(CURLOPT_PROTOCOLS_STR, "http,https");
    set(CURLOPT_FOLLOWLOCATION, 0L);  // by hand, below
    set(CURLOPT_FAILONERROR, 1L);
    set(CURLOPT_NOSIGNAL, 1L);
    set(CURLOPT_MAXFILESIZE_LARGE, static_cast<curl_off_t>(MostFetchedBytes));
    set(CURLOPT_ACCEPT_ENCODING, "");
    set(CURLOPT_USERAGENT, "Quillon/" QUILLON_VERSION);
    set(CURLOPT_WRITEFUNCTION, &Receive);
    set(CURLOPT_WRITEDATA, static_cast<void*>(&fetched));
    set(CURLOPT_NOPROGRESS, 0L);
    set(CURLOPT_XFERINFOFUNCTION, &Progress);
    set(CURLOPT_XFERINFODATA, static_cast<void*>(&fetched));
    std::string at = url;
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(LongestFetch);
    constexpr int mostRedirects = 5;
    for (int redirects = 0; redirects <= mostRedirects; ++redirects) {
        const auto left = end - std::chrono::steady_clock::now();
        const long milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(left).count();
        set(CURLOPT_URL, at.c_str());
        set(CURLOPT_TIMEOUT_MS, std::max(milliseconds, 1L));
        fetched.Bytes.clear();
        const CURLcode outcome = curl.Perform(transfer.get());
        if (fetched.Stopped) return {};
        if (fetched.TooLong) Refuse(url, "more than 16 MiB");
        if (outcome != CURLE_OK) Refuse(url, curl.Text(outcome));
        const char* next = nullptr;
        curl.Info(transfer.get(), CURLINFO_REDIRECT_URL, &next);
        if (!next) return std::move(fetched.Bytes);
        const std::string to = next;
        if (HostOfUrl(to).empty()) Refuse(url, "it was moved to what is not an http or https address");
        if (HostOfUrl(to) != HostOfUrl(at)) throw FetchMoved(url, to);
        at = to;
    }
    Refuse(url, "it was moved too often");
}

}  // namespace Quillon
