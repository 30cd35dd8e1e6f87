#pragma once

#include "library/Library.h"
#include "support/PrivateProfile.h"

#include <memory>

/// The library of a test over a profile that is empty at first. A test class that derives from it
/// calls reset() in its init().
class LibraryRun
{
protected:
    void reset()
    {
        PrivateProfile::current().clear();
        restart();
    }
    /// Ends the library as a program does at its end, and starts another one.
    void restart()
    {
        library.reset();
        library = std::make_unique<Library>(nullptr);
    }

    std::unique_ptr<Library> library;
};
