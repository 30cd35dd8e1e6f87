# Finds libVLC 3 and defines LibVLC::LibVLC.
#
# LIBVLC_ROOT may name a folder with include/ and lib/, or with sdk/ as in VideoLAN's archives for
# Windows.

find_path(LibVLC_INCLUDE_DIR vlc/vlc.h HINTS ${LIBVLC_ROOT} ENV LIBVLC_ROOT
          PATH_SUFFIXES include sdk/include)
find_library(LibVLC_LIBRARY NAMES vlc libvlc HINTS ${LIBVLC_ROOT} ENV LIBVLC_ROOT
             PATH_SUFFIXES lib sdk/lib)

if(LibVLC_INCLUDE_DIR AND EXISTS ${LibVLC_INCLUDE_DIR}/vlc/libvlc_version.h)
    file(STRINGS ${LibVLC_INCLUDE_DIR}/vlc/libvlc_version.h version_lines
         REGEX "define LIBVLC_VERSION_(MAJOR|MINOR|REVISION)")
    string(REGEX REPLACE "[^0-9]+([0-9]+)[^0-9]+([0-9]+)[^0-9]+([0-9]+).*" "\\1.\\2.\\3"
                         LibVLC_VERSION "${version_lines}")
endif()

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(LibVLC REQUIRED_VARS LibVLC_LIBRARY LibVLC_INCLUDE_DIR
                                  VERSION_VAR LibVLC_VERSION)

if(LibVLC_FOUND AND NOT TARGET LibVLC::LibVLC)
    add_library(LibVLC::LibVLC UNKNOWN IMPORTED)
    set_target_properties(LibVLC::LibVLC PROPERTIES
        IMPORTED_LOCATION ${LibVLC_LIBRARY}
        INTERFACE_INCLUDE_DIRECTORIES ${LibVLC_INCLUDE_DIR})
endif()
mark_as_advanced(LibVLC_INCLUDE_DIR LibVLC_LIBRARY)
