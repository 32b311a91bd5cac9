// The stream cipher of the music file: RC4 under a 40-bit key taken from the MD5 of a pass phrase.
#pragma once

#include "platform/Cipher.h"

namespace Quillon {

/// The key has 16 bytes: the first 5 of the hash, then 11 zeros. The zeros are meant: the 40-bit keys of the provider
/// that first wrote these files carry 88 bits of salt, all zero, and RC4 gives another stream for the bare 5 bytes.
class Rc4Md5 : public Cipher {
public:
    std::string Apply(std::string_view bytes, std::string_view passPhrase) const override;
};

}  // namespace Quillon
