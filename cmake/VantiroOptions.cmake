# One INTERFACE target carries the warnings, the strict Qt defines and the include root that
# every target of the project uses.

option(VANTIRO_WARNINGS_AS_ERRORS "Treat compiler warnings as errors" OFF)
set(VANTIRO_SANITIZE "" CACHE STRING "Sanitizers to build with, for example address,undefined")

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

# A static library of one folder under src/.
function(vantiro_add_library name)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "" "" "SOURCES;LINK")
    add_library(${name} STATIC ${ARG_SOURCES})
    target_link_libraries(${name} PUBLIC vantiro_options ${ARG_LINK})
endfunction()
