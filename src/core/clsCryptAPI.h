// Whole files and buffers through the stream cipher.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace Quillon {
struct Cipher;
struct FileSystem;
}  // namespace Quillon

namespace Quillon::Core {

/// All music files share this pass phrase: the cipher hides the text from a casual eye, and guards nothing.
constexpr std::string_view MusicFilePassPhrase = "dahlia";

class clsCryptAPI {
public:
    clsCryptAPI(FileSystem& filesInUse, const Cipher& cipherInUse) : files(filesInUse), cipher(cipherInUse) {}

    /// Enciphers the file `from` into `to`, which it replaces. Raises what the file system raises.
    void EncryptFile(const std::filesystem::path& from, const std::filesystem::path& to, std::string_view passPhrase);
    void DecryptFile(const std::filesystem::path& from, const std::filesystem::path& to, std::string_view passPhrase);
    /// Results have the length of what was given: no header, no checksum.
    std::string EncryptByte(std::string_view bytes, std::string_view passPhrase) const;
    std::string DecryptByte(std::string_view bytes, std::string_view passPhrase) const;

private:
    FileSystem& files;
    const Cipher& cipher;
};

}  // namespace Quillon::Core
