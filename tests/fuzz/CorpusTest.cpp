#include "fuzz/Targets.h"
#include "tests/support/Golden.h"

namespace fs = std::filesystem;

TEST(Corpus, EveryFileIsReadWithoutAFault) {
    for (const Quillon::Fuzz::Target& target : Quillon::Fuzz::Targets) {
        int files = 0;
        for (const auto& entry :
             fs::directory_iterator(fs::path(QUILLON_SOURCE_DIR) / "fuzz" / "corpus" / target.Name)) {
            SCOPED_TRACE(entry.path());
            EXPECT_NO_THROW(target.Run(Quillon::Testing::Slurp(entry.path())));
            ++files;
        }
        EXPECT_GT(files, 0) << target.Name;
    }
}
