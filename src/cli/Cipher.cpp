// quillon-cli decipher FILE, quillon-cli encipher FILE OUT
#include <CLI/CLI.hpp>
#include <memory>

#include "cli/Commands.h"
#include "core/mod_MusicFile.h"
#include "platform/FileSystem.h"
#include "platform/Services.h"

namespace Quillon::Cli {

void AddDecipher(CLI::App& app, Work& work) {
    CLI::App* command = app.add_subcommand("decipher", "Prints the plain text of a music file, byte for byte");
    const auto file = std::make_shared<std::string>();
    command->add_option("FILE", *file, "Music file")->required()->type_name("");
    command->callback([file, &work] {
        work = [file] {
            Print(Core::DecipherMusicFile(Services.Files->Read(*file)));
            return Done;
        };
    });
}

void AddEncipher(CLI::App& app, Work& work) {
    struct Arguments {
        std::string File;
        std::string Out;
    };
    CLI::App* command = app.add_subcommand("encipher", "Makes a music file of its plain text");
    const auto arguments = std::make_shared<Arguments>();
    command->add_option("FILE", arguments->File, "Plain text")->required()->type_name("");
    command->add_option("OUT", arguments->Out, "Music file to write")->required()->type_name("");
    command->callback([arguments, &work] {
        work = [arguments] {
            Services.Files->Replace(arguments->Out, Core::EncipherMusicFile(Services.Files->Read(arguments->File)));
            return Done;
        };
    });
}

}  // namespace Quillon::Cli
