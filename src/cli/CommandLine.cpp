// The command line of the twin: parsing, exit statuses, and where every failure ends.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <new>
#include <sstream>

#include "cli/Commands.h"
#include "cli/Session.h"
#include "core/mod_Common.h"
#include "platform/RunTimeError.h"

namespace Quillon::Cli {

namespace {

constexpr const char* Version = "quillon-cli " QUILLON_VERSION;

struct Answers {
    bool Yes = false;
    bool No = false;
    bool Cancel = false;

    void AddTo(CLI::App& command) {
        CLI::Option* yes = command.add_flag("--yes", Yes, "Answer every question with Yes");
        CLI::Option* no = command.add_flag("--no", No, "Answer every question with No, as without any of these");
        CLI::Option* cancel = command.add_flag("--cancel", Cancel, "Answer every question with Cancel");
        yes->excludes(no)->excludes(cancel);
        no->excludes(cancel);
    }
    Answer Given() const { return Yes ? Answer::Yes : Cancel ? Answer::Cancel : Answer::No; }
};

void PrintError(const std::string& line) {
    const std::string text = "quillon-cli: " + OnOneLine(line) + "\n";
    std::fwrite(text.data(), 1, text.size(), stderr);
}

/// What a wrong command line is told. A first word that is no command says more than that one is missing.
std::string ReasonOf(const CLI::App& app, const CLI::ParseError& wrong) {
    const CLI::App* command = &app;
    while (!command->get_subcommands().empty()) command = command->get_subcommands().front();
    const std::vector<std::string> strange = app.remaining(true);
    if (strange.empty() || command->get_subcommands(nullptr).empty()) return wrong.what();
    return strange.front() + ": no such " + (strange.front().starts_with('-') ? "option" : "command");
}

int Refuse(const CLI::App& app, const std::string& why) {
    PrintError(why);
    const std::string usage = "\n" + app.help();
    std::fwrite(usage.data(), 1, usage.size(), stderr);
    return WrongCommandLine;
}

}  // namespace

void Print(std::string_view bytes) {
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), stdout) == bytes.size();
    if (std::fflush(stdout) != 0 || !written) throw CommandFailure("standard output could not be written");
}

int Run(int argumentCount, const char* const* arguments) {
    CLI::App app("Converts, checks and shows Quillon songs without windows.", "quillon-cli");
    app.set_version_flag("--version", Version);
    app.require_subcommand(1);
    app.get_formatter()->label("SUBCOMMAND", "COMMAND");
    app.get_formatter()->label("Subcommands", "Commands");
    std::string base;
    app.add_option("--base", base, "Folder that holds the settings and Data")->type_name("DIR");

    Work work;
    for (const auto add : {&AddConvert, &AddDump, &AddDecipher, &AddEncipher, &AddLayout, &AddTrace, &AddKeys, &AddEdit,
                           &AddLibraries, &AddDevices}) {
        add(app, work);
    }
    Answers answers;
    for (CLI::App* command : app.get_subcommands(nullptr)) {
        command->fallthrough();  // --base may stand behind the command too
        answers.AddTo(*command);
        for (CLI::App* part : command->get_subcommands(nullptr)) part->fallthrough();
    }

    try {
        try {
            app.parse(argumentCount, arguments);
        } catch (const CLI::Success& asked) {  // --help and --version
            std::ostringstream text;
            app.exit(asked, text);
            Print(text.str());
            return Done;
        }
        Session session(base, arguments[0], answers.Given());
        return work();
    } catch (const CLI::ParseError& wrong) {
        return Refuse(app, ReasonOf(app, wrong));
    } catch (const UsageError& wrong) {
        return Refuse(app, wrong.what());
    } catch (const std::bad_alloc&) {
        PrintError("Out of memory");
    } catch (const std::exception& failure) {
        PrintError(failure.what());
    }
    return Failed;
}

}  // namespace Quillon::Cli
