#pragma once

#include <optional>

class QCoreApplication;

/// The few words that the program understands on its command line.
namespace CommandLine {

/// Whether the words ask only for a text ("--help", "--version"), for which no display is needed.
bool asksForText(int argc, char **argv);

/// Answers "--help" and "--version" on standard output and returns the status with which the
/// process is to end. Without either returns nothing, and the program starts: words that it does
/// not know are only reported on standard error.
std::optional<int> process(const QCoreApplication &app);

} // namespace CommandLine
