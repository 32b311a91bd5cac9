#include "bench/Setting.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "platform/MessageBox.h"
#include "platform/Services.h"
#include "platform/headless/MemoryStore.h"
#include "platform/portable/PosixFiles.h"
#include "platform/portable/Rc4Md5.h"

namespace Quillon::Bench {

namespace {

/// Nothing that is measured here has a question to ask or a failure to tell.
struct FailingBox : MessageBox {
    Answer Show(const std::string& text, const std::string& /*title*/, Buttons /*buttons*/, BoxIcon /*icon*/) override {
        Fail(text);
    }
};

}  // namespace

Setting::Setting() {
    static PosixFiles files;
    static MemoryStore settings;
    static FailingBox messages;
    static Rc4Md5 cipher;
    std::string pattern = (std::filesystem::temp_directory_path() / "quillon-bench-XXXXXX").string();
    if (!mkdtemp(pattern.data())) Fail("can't make a folder for the measurements");
    Services = {pattern, &files, &settings, &messages, &cipher};
    files.MakeFolder(Services.BaseFolder / "Data");
}

Setting::~Setting() {
    std::error_code ignored;
    std::filesystem::remove_all(Services.BaseFolder, ignored);
}

void Fail(std::string_view why) {
    std::fprintf(stderr, "Not measured: %.*s\n", static_cast<int>(why.size()), why.data());
    std::exit(2);
}

}  // namespace Quillon::Bench
