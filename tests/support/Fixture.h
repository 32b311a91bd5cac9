// The platform's services for a test: real files in a scratch folder, a store in memory, boxes that are remembered.
#pragma once

#include <string>
#include <vector>

#include "core/mod_TabFileStructure.h"
#include "platform/MessageBox.h"
#include "platform/Services.h"
#include "platform/headless/MemoryStore.h"
#include "platform/portable/PosixFiles.h"
#include "platform/portable/Rc4Md5.h"
#include "tests/support/Golden.h"

namespace Quillon::Testing {

struct RememberingBox : MessageBox {
    std::vector<std::string> Texts;
    Answer Reply = Answer::No;

    Answer Show(const std::string& text, const std::string&, Buttons buttons, BoxIcon) override {
        Texts.push_back(text);
        return buttons == Buttons::Ok ? Answer::Ok : Reply;
    }
};

/// Fills Services for its lifetime, over a scratch base folder, and leaves a fresh open document.
class ServicesForTest {
public:
    ServicesForTest() : before(Services) {
        Services = {Base.Path(), &Files, &Settings, &Messages, &StreamCipher};
        Core::Open = {};
    }
    ~ServicesForTest() { Services = before; }
    ServicesForTest(const ServicesForTest&) = delete;
    ServicesForTest& operator=(const ServicesForTest&) = delete;

    ScratchFolder Base;
    PosixFiles Files;
    MemoryStore Settings;
    RememberingBox Messages;
    Rc4Md5 StreamCipher;

private:
    ServicesInUse before;
};

}  // namespace Quillon::Testing
