# Compiles through ccache where it is installed. The presets' environment makes working trees at
# different paths share their results.

if(NOT MSVC AND NOT DEFINED CMAKE_CXX_COMPILER_LAUNCHER)
    find_program(VANTIRO_CCACHE ccache)
    mark_as_advanced(VANTIRO_CCACHE)
    if(VANTIRO_CCACHE)
        set(CMAKE_CXX_COMPILER_LAUNCHER ${VANTIRO_CCACHE})
    endif()
endif()
