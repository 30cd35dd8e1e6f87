#pragma once

#include "app/RegexpJit.h"
#include "support/PrivateProfile.h"

#ifdef VANTIRO_THREAD_SANITIZER
#include "support/QtHandOver.h"
#endif

#include <QApplication>
#include <QCoreApplication>
#include <QTest>

/// The main of a test program: a private profile first, then the application, then the tests.
template <typename Application, typename TestClass>
int runTestProgram(int argc, char **argv)
{
    disableRegexpJit();
    PrivateProfile profile;
#ifdef VANTIRO_THREAD_SANITIZER
    SanitizedApplication<Application> application(argc, argv);
#else
    Application application(argc, argv);
#endif
    TestClass test;
    return QTest::qExec(&test, argc, argv);
}

/// For tests that make widgets.
#define VANTIRO_TEST_MAIN(TestClass)                                                               \
    int main(int argc, char **argv)                                                                \
    {                                                                                              \
        return runTestProgram<QApplication, TestClass>(argc, argv);                                \
    }

/// For tests that need an event loop at most.
#define VANTIRO_TEST_GUILESS_MAIN(TestClass)                                                       \
    int main(int argc, char **argv)                                                                \
    {                                                                                              \
        return runTestProgram<QCoreApplication, TestClass>(argc, argv);                            \
    }
