#include "cli/Commands.h"

int main(int argumentCount, char** arguments) { return Quillon::Cli::Run(argumentCount, arguments); }
