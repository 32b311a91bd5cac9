// quillon-cli convert IN OUT
#include <CLI/CLI.hpp>
#include <memory>

#include "cli/Commands.h"
#include "cli/DocumentFiles.h"

namespace Quillon::Cli {

namespace {

struct Arguments {
    std::string In;
    std::string Out;
    ConvertOptions Options;
};

int Convert(const Arguments& arguments) {
    const DocumentWriter& writer = WriterFor(arguments.Out);
    OpenWholeDocument(arguments.In);
    if (arguments.Options.Track) ChooseTrack(*arguments.Options.Track);
    if (!writer.Write(arguments.Out, arguments.Options)) {
        throw CommandFailure(arguments.Out + ": not written; --yes would go on");
    }
    return Done;
}

}  // namespace

void AddConvert(CLI::App& app, Work& work) {
    CLI::App* command = app.add_subcommand("convert", "Opens IN by its ending and writes OUT by its ending");
    const auto arguments = std::make_shared<Arguments>();
    command->add_option("IN", arguments->In, "Document to open: .qlm .json")->required()->type_name("");
    command->add_option("OUT", arguments->Out, "File to write: .qlm .json")->required()->type_name("");
    command->add_option("--track", arguments->Options.Track, "Current track, from 0, for outputs that show one")
        ->type_name("N");
    command->callback([arguments, &work] { work = [arguments] { return Convert(*arguments); }; });
}

}  // namespace Quillon::Cli
