// The stream cipher behind the music file.
#pragma once

#include <string>
#include <string_view>

namespace Quillon {

struct Cipher {
    virtual ~Cipher() = default;
    /// Enciphers, or deciphers, a whole buffer under a pass phrase; the result has the same length.
    virtual std::string Apply(std::string_view bytes, std::string_view passPhrase) const = 0;
};

}  // namespace Quillon
