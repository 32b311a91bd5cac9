#include "library/FolderLibrary.h"

namespace Quillon::Library {

void WriteDefaults(const std::filesystem::path& folder, const std::vector<NamedBytes>& files) {
    if (!Services.Files->Exists(folder)) {
        Services.Files->MakeFolder(folder.parent_path());
        return Services.Files->ReplaceFolder(folder, files);
    }
    for (const NamedBytes& file : files) Services.Files->Replace(folder / file.Name, file.Bytes);
}

}  // namespace Quillon::Library
