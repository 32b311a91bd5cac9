// The services of one run of the twin.
#pragma once

#include <filesystem>
#include <string>

#include "platform/headless/AnsweringBox.h"
#include "platform/portable/IniStore.h"
#include "platform/portable/PosixFiles.h"
#include "platform/portable/Rc4Md5.h"
#include "platform/sound/FluidSynthesizer.h"
#include "platform/sound/SystemMidi.h"

namespace Quillon::Cli {

class Session {
public:
    /// Fills Services and takes the language and the decimal sign; `answer` is for every question.
    Session(const std::string& baseOption, const char* program, Answer answer);
    /// Deletes the scratch files.
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

private:
    std::filesystem::path base;
    PosixFiles files;
    IniStore settings;
    AnsweringBox messages;
    Rc4Md5 streamCipher;
    // Both load their libraries only when a command asks them for something.
    FluidSynthesizer synthesizer;
    SystemMidi outputs{synthesizer};
};

}  // namespace Quillon::Cli
