// quillon-cli dump FILE
#include <CLI/CLI.hpp>
#include <memory>

#include "cli/Commands.h"
#include "cli/DocumentFiles.h"
#include "exchange/JsonDocument.h"

namespace Quillon::Cli {

namespace {

/// Prints what was read also when reading stopped at a damaged tag, which a box told.
int Dump(const std::string& file) {
    const Core::OpenOutcome outcome = OpenDocument(file);
    Print(Exchange::WriteJson(Core::Open.TabFile));
    if (outcome != Core::OpenOutcome::Opened) throw CommandFailure(file + ": the file is damaged; a part was read");
    return Done;
}

}  // namespace

void AddDump(CLI::App& app, Work& work) {
    CLI::App* command = app.add_subcommand("dump", "Prints a document as JSON");
    const auto file = std::make_shared<std::string>();
    command->add_option("FILE", *file, "Document to open, by its ending")->required()->type_name("");
    command->callback([file, &work] { work = [file] { return Dump(*file); }; });
}

}  // namespace Quillon::Cli
