// Runs the real quillon-cli in a scratch folder of its own.
#pragma once

#include <string>
#include <vector>

#include "tests/support/Golden.h"

namespace Quillon::Testing {

struct Finished {
    int Status = -1;
    std::string Out;
    std::string Err;
};

class CliStory {
public:
    /// Runs with the scratch folder as the current one and `base` below it as the base folder. Standard output goes
    /// to `device` when one is given.
    Finished Run(const std::vector<std::string>& arguments, const std::string& device = "") const;
    std::filesystem::path operator/(const std::filesystem::path& name) const { return folder / name; }
    /// A golden music file, copied into the scratch folder.
    void Bring(const std::string& golden) const;
    /// Names in the scratch folder, sorted, without the base folder.
    std::vector<std::string> Files() const;

private:
    ScratchFolder folder;
};

}  // namespace Quillon::Testing
