#pragma once

#include <optional>

class QCoreApplication;

/// The options of the program's command line.
namespace CommandLine {

/// Whether the arguments ask only for text ("--help", "--version"), which needs no display.
bool asksForText(int argc, char **argv);

/// Answers "--help" and "--version" on standard output and returns the exit status. Otherwise
/// returns nothing, and the program starts; unknown arguments are only reported on standard error.
std::optional<int> process(const QCoreApplication &app);

} // namespace CommandLine
