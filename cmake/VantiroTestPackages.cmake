# Finds the packages that the tests and the demo need beyond the player's own, and reports what is
# built: VANTIRO_WITH_TESTS, and VANTIRO_WITH_DEMO for the demo provider, which needs less.
#
# If a package is missing, VANTIRO_BUILD_TESTS=AUTO leaves out what needs it and names it; ON makes that
# an error. OFF looks for nothing.

set(VANTIRO_BUILD_TESTS AUTO CACHE STRING
    "Build the tests and the demo: ON, OFF, or AUTO for what this machine has the packages for")
set_property(CACHE VANTIRO_BUILD_TESTS PROPERTY STRINGS AUTO ON OFF)

set(VANTIRO_WITH_TESTS OFF)
set(VANTIRO_WITH_DEMO OFF)
if(NOT VANTIRO_BUILD_TESTS)
    return()
endif()

set(missing)
if(NOT WIN32) # the Windows build has no TLS servers and no demo
    find_package(OpenSSL QUIET)
    if(NOT OPENSSL_FOUND)
        list(APPEND missing "the headers of OpenSSL")
    endif()
    if(NOT missing)
        set(VANTIRO_WITH_DEMO ON)
    endif()
endif()
find_package(Qt6 6.4 QUIET COMPONENTS Test)
if(TARGET Qt6::Test)
    # Two of its definitions name the folders of each test, where QFINDTESTDATA looks. With them the
    # compiler cache has nothing for another clone.
    get_target_property(definitions Qt6::Test INTERFACE_COMPILE_DEFINITIONS)
    list(FILTER definitions EXCLUDE REGEX "^QT_TESTCASE_")
    set_target_properties(Qt6::Test PROPERTIES INTERFACE_COMPILE_DEFINITIONS "${definitions}")
else()
    list(APPEND missing "Qt Test")
endif()
find_program(VANTIRO_FFMPEG ffmpeg)
if(NOT VANTIRO_FFMPEG)
    list(APPEND missing ffmpeg)
endif()
if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
    find_program(VANTIRO_PYTHON python3)
    if(NOT VANTIRO_PYTHON)
        list(APPEND missing python3)
    endif()
    if(NOT VANTIRO_LUPDATE OR NOT VANTIRO_LRELEASE)
        list(APPEND missing "Qt's lupdate and lrelease")
    endif()
    # The end-to-end tests drive the program's window.
    find_package(PkgConfig QUIET)
    if(PkgConfig_FOUND)
        pkg_check_modules(ATSPI QUIET IMPORTED_TARGET atspi-2 gobject-2.0)
        pkg_check_modules(XCB QUIET IMPORTED_TARGET xcb)
        pkg_check_modules(XCB_RES QUIET IMPORTED_TARGET xcb-res xcb)
        pkg_check_modules(XFIXES QUIET IMPORTED_TARGET xfixes x11)
        foreach(module IN ITEMS ATSPI XCB XCB_RES XFIXES)
            if(NOT ${module}_FOUND)
                list(APPEND missing "the headers of ${module}")
            endif()
        endforeach()
    else()
        list(APPEND missing pkg-config)
    endif()
endif()

if(NOT missing)
    set(VANTIRO_WITH_TESTS ON)
    return()
endif()
list(JOIN missing ", " missing)
if(VANTIRO_BUILD_TESTS STREQUAL "AUTO")
    message(STATUS "Not building the tests, which also need: ${missing}. "
                   "scripts/bootstrap --test installs that on Debian.")
else()
    message(FATAL_ERROR "The tests also need: ${missing}. "
                        "scripts/bootstrap --test installs that on Debian.")
endif()
