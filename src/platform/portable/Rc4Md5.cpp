#include "platform/portable/Rc4Md5.h"

#include <nettle/arcfour.h>
#include <nettle/md5.h>

#include <algorithm>
#include <array>

namespace Quillon {

namespace {

constexpr std::size_t SecretBytes = 5;
constexpr std::size_t KeyBytes = 16;

const std::uint8_t* Octets(std::string_view text) { return reinterpret_cast<const std::uint8_t*>(text.data()); }

}  // namespace

std::string Rc4Md5::Apply(std::string_view bytes, std::string_view passPhrase) const {
    md5_ctx hash{};
    md5_init(&hash);
    md5_update(&hash, passPhrase.size(), Octets(passPhrase));
    std::array<std::uint8_t, MD5_DIGEST_SIZE> digest{};
    md5_digest(&hash, digest.size(), digest.data());

    std::array<std::uint8_t, KeyBytes> key{};
    std::copy_n(digest.begin(), SecretBytes, key.begin());
    arcfour_ctx stream{};
    arcfour_set_key(&stream, key.size(), key.data());

    std::string out(bytes.size(), '\0');
    arcfour_crypt(&stream, out.size(), reinterpret_cast<std::uint8_t*>(out.data()), Octets(bytes));
    return out;
}

}  // namespace Quillon
