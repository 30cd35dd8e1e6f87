#pragma once

#include <QStringList>

#include <optional>

class QCoreApplication;

/// The options and words of the program's command line.
namespace CommandLine {

/// Whether the arguments ask only for text ("--help", "--version"), which needs no display.
bool asksForText(int argc, char **argv);

/// What the command line asks for.
struct Request
{
    /// The program has answered and ends with this status; nothing when it starts.
    std::optional<int> exitStatus;
    /// What it opens then: absolute paths and URLs.
    QStringList addresses;
};

/// Answers "--help" and "--version" on standard output. Otherwise the program starts; unknown
/// options are only reported on standard error. Relative paths start at the working directory.
Request process(const QCoreApplication &app);

} // namespace CommandLine
