#include "core/clsCryptAPI.h"

#include "platform/Cipher.h"
#include "platform/FileSystem.h"

namespace Quillon::Core {

void clsCryptAPI::EncryptFile(const std::filesystem::path& from, const std::filesystem::path& to,
                              std::string_view passPhrase) {
    files.WriteScratch(to, EncryptByte(files.Read(from), passPhrase));
}

void clsCryptAPI::DecryptFile(const std::filesystem::path& from, const std::filesystem::path& to,
                              std::string_view passPhrase) {
    files.WriteScratch(to, DecryptByte(files.Read(from), passPhrase));
}

std::string clsCryptAPI::EncryptByte(std::string_view bytes, std::string_view passPhrase) const {
    return cipher.Apply(bytes, passPhrase);
}

// A stream cipher undoes itself.
std::string clsCryptAPI::DecryptByte(std::string_view bytes, std::string_view passPhrase) const {
    return cipher.Apply(bytes, passPhrase);
}

}  // namespace Quillon::Core
