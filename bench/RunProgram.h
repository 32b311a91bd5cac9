// Programs run as a user runs them.
#pragma once

#include <string>
#include <vector>

namespace Quillon::Bench {

/// Runs a program to its end and ends this one when it fails. Its standard output goes to a file when one is named,
/// else nowhere. Its largest resident memory in bytes.
double RunToItsEnd(std::vector<std::string> words, const std::string& output = "/dev/null");

}  // namespace Quillon::Bench
