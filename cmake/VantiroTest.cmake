# vantiro_add_test(<name> SOURCES ... [LINK ...] [DISPLAY offscreen|xvfb] [TIMEOUT <seconds>]
#                  [LABELS ...] [ENVIRONMENT NAME=value ...] [STREAMS])
#
# A Qt Test program with its own main (support/TestMain.h) and its CTest test. The test runs in a
# private profile with a silent sound card, so that it cannot touch a user's files. With DISPLAY xvfb
# it gets its own X server and window manager, two such tests run at a time, and it has the label e2e.
# STREAMS makes the generated streams (fakeprovider/Streams.h) first. ENVIRONMENT adds to the test's
# environment or overrides it.

# The prefix of this machine's absolute paths in a tested program: Wine maps the root to drive Z.
set(VANTIRO_TARGET_DRIVE "")
if(WIN32 AND CMAKE_CROSSCOMPILING)
    set(VANTIRO_TARGET_DRIVE "Z:")
endif()

function(vantiro_add_test name)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "STREAMS" "DISPLAY;TIMEOUT"
                          "SOURCES;LINK;LABELS;ENVIRONMENT")
    if(ARG_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "vantiro_add_test(${name}): unknown ${ARG_UNPARSED_ARGUMENTS}")
    endif()
    if(NOT ARG_DISPLAY)
        set(ARG_DISPLAY offscreen)
    elseif(NOT ARG_DISPLAY MATCHES "^(offscreen|xvfb)$")
        message(FATAL_ERROR "vantiro_add_test(${name}): unknown display ${ARG_DISPLAY}")
    endif()
    if(NOT ARG_TIMEOUT AND WIN32) # Wine shares one server among all tests
        set(ARG_TIMEOUT 180)
    elseif(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 60)
    endif()
    if(VANTIRO_SANITIZE MATCHES "thread") # some ten times slower
        math(EXPR ARG_TIMEOUT "5 * ${ARG_TIMEOUT}")
    endif()

    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE vantiro_options ${ARG_LINK} vantiro_test_support)
    vantiro_reuse_precompiled(${name} widgets)
    set_target_properties(${name} PROPERTIES
        RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/tests/bin)
    if(ARG_STREAMS)
        add_dependencies(${name} vantiro_streams)
    endif()

    set(profile ${PROJECT_BINARY_DIR}/profiles/${name})
    file(MAKE_DIRECTORY ${profile}/config ${profile}/data ${profile}/cache)
    file(MAKE_DIRECTORY ${profile}/runtime)
    file(CHMOD ${profile}/runtime PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
    # libVLC's plugins leak and are unloaded before the leak could be attributed to them. Its HLS plugin
    # also mixes operator new and free.
    set(leaks 1)
    if(ARG_DISPLAY STREQUAL "xvfb" OR ARG_LINK MATCHES "vantiro_(player|ui|account)")
        set(leaks 0)
    endif()
    set(environment
        HOME=${profile}
        XDG_CONFIG_HOME=${profile}/config
        XDG_DATA_HOME=${profile}/data
        XDG_CACHE_HOME=${profile}/cache
        XDG_RUNTIME_DIR=${profile}/runtime
        ALSA_CONFIG_PATH=${PROJECT_SOURCE_DIR}/tests/support/alsa-null.conf
        LC_ALL=C.UTF-8
        LANGUAGE=
        VANTIRO_LANGUAGE=
        QT_QPA_PLATFORMTHEME=
        no_proxy=127.0.0.1,localhost
        ASAN_OPTIONS=detect_leaks=${leaks}:alloc_dealloc_mismatch=0
        UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
        TSAN_OPTIONS=halt_on_error=1:ignore_noninstrumented_modules=1:suppressions=${PROJECT_SOURCE_DIR}/tests/support/tsan.supp)
    if(ARG_DISPLAY STREQUAL "xvfb")
        add_test(NAME ${name}
                 COMMAND ${PROJECT_SOURCE_DIR}/tests/support/with-display
                         ${CMAKE_CROSSCOMPILING_EMULATOR} $<TARGET_FILE:${name}>)
        # The presets allow two tests with a picture at a time; others run beside them. They begin
        # first, the longest before the others.
        math(EXPR cost "1000 + ${ARG_TIMEOUT}")
        set_tests_properties(${name} PROPERTIES RESOURCE_GROUPS "screens:1" COST ${cost})
        if(NOT WIN32)
            list(APPEND environment QT_QPA_PLATFORM=xcb)
        endif()
        list(APPEND ARG_LABELS e2e)
    else()
        add_test(NAME ${name} COMMAND ${name})
        # Without a window libVLC would draw into whatever display or terminal it finds.
        list(APPEND environment
             QT_QPA_PLATFORM=offscreen DISPLAY= WAYLAND_DISPLAY= CACA_DRIVER=null
             DBUS_SESSION_BUS_ADDRESS=)
    endif()
    if(NOT ARG_DISPLAY STREQUAL "xvfb")
        # Slow tests, which have high time limits, run first.
        set_tests_properties(${name} PROPERTIES COST ${ARG_TIMEOUT})
    endif()
    set_tests_properties(${name} PROPERTIES
        TIMEOUT ${ARG_TIMEOUT}
        SKIP_RETURN_CODE 77
        LABELS "${ARG_LABELS}"
        ENVIRONMENT "${environment};${ARG_ENVIRONMENT}")
endfunction()

# vantiro_watch_threads(<test>...)
#
# The thread sanitizer runs these tests, which are of units with threads:
# scripts/test --preset tsan --target thread_tests -L threads
function(vantiro_watch_threads)
    if(NOT TARGET thread_tests)
        add_custom_target(thread_tests)
    endif()
    add_dependencies(thread_tests ${ARGN})
    set_property(TEST ${ARGN} APPEND PROPERTY LABELS threads)
endfunction()
