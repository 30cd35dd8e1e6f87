#pragma once

#include <QtGlobal>

#include <sys/resource.h>

#include <csignal>

/// Lets this process write no file beyond so many bytes, as on a disk that is full, until it goes
/// out of scope. Pipes and sockets are not concerned.
class FullDisk final
{
public:
    explicit FullDisk(qint64 mostBytes)
    {
        std::signal(SIGXFSZ, SIG_IGN); // the write fails instead
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit limit{static_cast<rlim_t>(mostBytes), before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &before); }
    FullDisk(const FullDisk &) = delete;
    FullDisk &operator=(const FullDisk &) = delete;

private:
    rlimit before{};
};
