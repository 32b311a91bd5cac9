// The commands of the twin: each adds itself to the command line and says what it does.
#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace CLI {
class App;
}

namespace Quillon::Cli {

enum ExitStatus : int { Done = 0, Failed = 1, WrongCommandLine = 2 };

/// What the command line asked for; runs once the services are filled. Returns the exit status.
using Work = std::function<int()>;

/// Ends a command with status 1 and this line on standard error: what failed, on which file, and why.
struct CommandFailure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Ends a command with status 2, this line and the command's usage.
struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Writes bytes to standard output; raises CommandFailure when they can't all be written.
void Print(std::string_view bytes);

// A command's option values live as long as `work`, which its callback sets.
void AddConvert(CLI::App& app, Work& work);
void AddDevices(CLI::App& app, Work& work);
void AddDump(CLI::App& app, Work& work);
void AddDecipher(CLI::App& app, Work& work);
void AddEncipher(CLI::App& app, Work& work);
void AddLayout(CLI::App& app, Work& work);
void AddTrace(CLI::App& app, Work& work);
void AddKeys(CLI::App& app, Work& work);
void AddEdit(CLI::App& app, Work& work);
void AddLibraries(CLI::App& app, Work& work);
/// What is done with chords, below their own command.
void AddChordWork(CLI::App& chords, Work& work);

/// Runs the program; the arguments and result are those of main.
int Run(int argumentCount, const char* const* arguments);

}  // namespace Quillon::Cli
