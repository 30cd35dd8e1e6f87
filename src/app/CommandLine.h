#pragma once

class QCoreApplication;

/// The few words that the program understands on its command line.
namespace CommandLine {

/// Whether the words ask only for a text ("--help", "--version"), for which no display is needed.
bool asksForText(int argc, char **argv);

/// Answers "--help" and "--version" and leaves the process with status 0, or with status 1 after a
/// message for a word that it does not know. Returns when there is nothing to answer.
void process(const QCoreApplication &app);

} // namespace CommandLine
