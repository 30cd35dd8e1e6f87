#pragma once

#include <QByteArray>
#include <QtGlobal>

/// Makes Qt interpret regular expressions instead of compiling them, in programs that MinGW's GCC
/// builds. To be called before the first match.
///
/// Compiled matches keep a `thread_local` object with a destructor. At the end of a thread GCC's
/// runtime for Windows frees such objects before it runs their destructors. The destructor then
/// reads freed memory, and its access violation leaves a lock of the runtime taken: the process
/// hangs when it exits. Qt itself matches on other threads, for example to find its plugins.
inline void disableRegexpJit()
{
#if defined(__MINGW32__) && !defined(__clang__)
    qputenv("QT_ENABLE_REGEXP_JIT", "0");
#endif
}
