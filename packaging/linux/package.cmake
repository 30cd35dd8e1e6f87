# Installation for Linux, by the desktop's conventions, and the Debian package.

include(GNUInstallDirs)

# The release date in the texts: that of the build, or SOURCE_DATE_EPOCH, which scripts/package sets for
# reproducible builds.
string(TIMESTAMP VANTIRO_BUILD_DATE "%Y-%m-%d" UTC)
string(TIMESTAMP VANTIRO_BUILD_TIME "%a, %d %b %Y %H:%M:%S +0000" UTC)

set(CPACK_DEBIAN_PACKAGE_MAINTAINER "Vantiro <packages@vantiro.example>")
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)

set(application_id com.vantiro.Player)
set(linux_dir ${CMAKE_CURRENT_LIST_DIR})
set(icon_dir ${CMAKE_CURRENT_LIST_DIR}/../icon)
set(made_dir ${CMAKE_CURRENT_BINARY_DIR}/linux)
set(documentation_dir ${CMAKE_INSTALL_DATADIR}/doc/vantiro-player)

foreach(file IN ITEMS ${application_id}.metainfo.xml vantiro-player.1 changelog.Debian)
    configure_file(${linux_dir}/${file}.in ${made_dir}/${file} @ONLY)
endforeach()

# Compresses `input` without its name and time, so that equal texts give equal files.
function(vantiro_gzip input output)
    add_custom_command(OUTPUT ${output}
        COMMAND gzip -9nc ${input} > ${output}
        DEPENDS ${input}
        VERBATIM)
endfunction()
vantiro_gzip(${made_dir}/vantiro-player.1 ${made_dir}/vantiro-player.1.gz)
vantiro_gzip(${PROJECT_SOURCE_DIR}/CHANGELOG.md ${made_dir}/changelog.gz)
vantiro_gzip(${made_dir}/changelog.Debian ${made_dir}/changelog.Debian.gz)
add_custom_target(vantiro-player-documents ALL
    DEPENDS ${made_dir}/vantiro-player.1.gz
        ${made_dir}/changelog.gz ${made_dir}/changelog.Debian.gz)

install(TARGETS vantiro-player RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${linux_dir}/${application_id}.desktop
    DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${made_dir}/${application_id}.metainfo.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${made_dir}/vantiro-player.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${linux_dir}/copyright ${made_dir}/changelog.gz ${made_dir}/changelog.Debian.gz
    DESTINATION ${documentation_dir})
install(FILES ${linux_dir}/lintian-overrides
    DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides RENAME vantiro-player)
set(icon_theme_dir ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
foreach(size IN ITEMS 16 22 24 32 48 64 128 256 512)
    install(FILES ${icon_dir}/vantiro-player-${size}.png
        DESTINATION ${icon_theme_dir}/${size}x${size}/apps RENAME vantiro-player.png)
endforeach()
install(FILES ${icon_dir}/vantiro-player.svg DESTINATION ${icon_theme_dir}/scalable/apps)

set(CPACK_GENERATOR DEB)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SECTION video)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "\
Plays the live channels, films and shows of an M3U playlist, of an Xtream
Codes account or of a subscription, beside their list, in one window.

It stays fluid with catalogs of hundreds of thousands of entries, searches
all categories at once, shows posters, offers the audio tracks and subtitles
of a stream, and reconnects to live channels that drop out.")

# dpkg-shlibdeps finds the linked libraries and their versions; Qt's packages include its plugins for
# X11, JPEG and TLS. The rest is loaded or read at run time: libVLC's decoders and outputs, SQLite, and
# the certificate authorities.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS
    "vlc-plugin-base, vlc-plugin-video-output, libqt6sql6-sqlite, ca-certificates")
# For posters in WebP, and for Qt's file dialogs in the user's language.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-image-formats-plugins, qt6-translations-l10n")

if(VANTIRO_TEST_PACKAGE)
    add_subdirectory(${PROJECT_SOURCE_DIR}/tests/package ${PROJECT_BINARY_DIR}/tests/package)
endif()
