# One INTERFACE target carries the warnings, the strict Qt defines and the include root that
# every target of the project uses.

option(VANTIRO_WARNINGS_AS_ERRORS "Treat compiler warnings as errors" OFF)
set(VANTIRO_SANITIZE "" CACHE STRING "Sanitizers to build with, for example address,undefined")
option(VANTIRO_COVERAGE "Count how often each line of src/ runs (Clang)" OFF)
option(VANTIRO_HARDEN "Build with the compiler's and linker's hardening" OFF)

add_library(vantiro_options INTERFACE)
target_include_directories(vantiro_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_compile_features(vantiro_options INTERFACE cxx_std_20)
target_compile_definitions(vantiro_options INTERFACE
    QT_NO_KEYWORDS
    QT_NO_CAST_FROM_ASCII
    QT_NO_CAST_TO_ASCII
    QT_NO_CAST_FROM_BYTEARRAY
    QT_NO_URL_CAST_FROM_STRING
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
    QT_NO_CONTEXTLESS_CONNECT
    QT_NO_FOREACH
    QT_STRICT_ITERATORS
    QT_DISABLE_DEPRECATED_BEFORE=0x060400)

if(MSVC)
    target_compile_options(vantiro_options INTERFACE /W4 /permissive- /utf-8)
    target_compile_options(vantiro_options INTERFACE $<$<BOOL:${VANTIRO_WARNINGS_AS_ERRORS}>:/WX>)
else()
    target_compile_options(vantiro_options INTERFACE
        -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
        -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-qual -Wformat=2 -Wnull-dereference
        -Wimplicit-fallthrough
        $<$<BOOL:${VANTIRO_WARNINGS_AS_ERRORS}>:-Werror>)
endif()

if(VANTIRO_SANITIZE)
    target_compile_options(vantiro_options INTERFACE
        -fsanitize=${VANTIRO_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(vantiro_options INTERFACE -fsanitize=${VANTIRO_SANITIZE})
endif()

if(VANTIRO_COVERAGE) # src/CMakeLists.txt compiles with it
    # A plugin of a test, which has no counters, would report that they cannot be relocated.
    target_link_options(vantiro_options INTERFACE
        $<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:-fprofile-instr-generate>)
endif()

if(VANTIRO_HARDEN)
    set(CMAKE_POSITION_INDEPENDENT_CODE ON)
    include(CheckPIESupported)
    check_pie_supported(LANGUAGES CXX)
    # The C library cannot fortify unoptimised code.
    target_compile_options(vantiro_options INTERFACE
        -U_FORTIFY_SOURCE $<$<NOT:$<CONFIG:Debug>>:-D_FORTIFY_SOURCE=2> -D_GLIBCXX_ASSERTIONS
        -fstack-protector-strong -fstack-clash-protection)
    # Processors differ in their guards of jumps and calls.
    include(CheckCXXCompilerFlag)
    foreach(guard IN ITEMS -fcf-protection -mbranch-protection=standard)
        string(MAKE_C_IDENTIFIER "VANTIRO_HAS${guard}" has_guard)
        check_cxx_compiler_flag(${guard} ${has_guard})
        target_compile_options(vantiro_options INTERFACE $<$<BOOL:${${has_guard}}>:${guard}>)
    endforeach()
    target_link_options(vantiro_options INTERFACE -Wl,-z,relro,-z,now,-z,noexecstack)
    # Link-time optimisation compiles again, so the linker needs the warning options too.
    target_link_options(vantiro_options INTERFACE
        $<$<BOOL:${VANTIRO_WARNINGS_AS_ERRORS}>:-Werror>)
    if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
        # GCC 12 assumes that a size in QHash's copy constructor can be negative.
        target_link_options(vantiro_options INTERFACE -Wno-alloc-size-larger-than)
        # Link-time optimisation of a PIE forgets -fPIC and copies Qt's variables into the program,
        # while Qt's libraries use their own. Qt then finds no application object.
        check_cxx_compiler_flag(-mno-direct-extern-access VANTIRO_HAS_INDIRECT_ACCESS)
        target_link_options(vantiro_options INTERFACE
            $<$<BOOL:${VANTIRO_HAS_INDIRECT_ACCESS}>:-mno-direct-extern-access>)
    endif()
endif()

# A library of one folder under src/: static, or shared with BUILD_SHARED_LIBS.
function(vantiro_add_library name)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "" "" "SOURCES;LINK")
    add_library(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PUBLIC vantiro_options ${ARG_LINK})
    if("Qt6::Widgets" IN_LIST ARG_LINK)
        vantiro_reuse_precompiled(${name} widgets)
    else()
        vantiro_reuse_precompiled(${name} core)
    endif()
endfunction()
