# Installation for Windows: one folder with the program, Qt, libVLC and their licences. CPack makes a
# ZIP of it, and an installer where NSIS is installed.

set(VANTIRO_LIBVLC_RUNTIME "" CACHE PATH
    "Folder with libvlc.dll, libvlccore.dll and plugins/ for Windows, to be packaged")
set(libvlc_runtime ${VANTIRO_LIBVLC_RUNTIME})
foreach(folder IN ITEMS ${VANTIRO_WINDOWS_SDK}/libvlc/bin ${LIBVLC_ROOT})
    # The bridge to libVLC under Wine has no plugins and is never packaged.
    if(NOT libvlc_runtime AND EXISTS ${folder}/libvlccore.dll AND EXISTS ${folder}/plugins)
        set(libvlc_runtime ${folder})
    endif()
endforeach()

install(TARGETS vantiro-player RUNTIME DESTINATION .)
install(FILES ${PROJECT_SOURCE_DIR}/CHANGELOG.md DESTINATION .)
install(FILES ${CMAKE_CURRENT_LIST_DIR}/licenses.txt DESTINATION licenses RENAME README.txt)

if(CMAKE_CROSSCOMPILING)
    # Qt's deployment tool runs only on Windows, so the libraries that the program loads are listed
    # here.
    foreach(library IN ITEMS Core Gui Widgets Network Sql)
        install(FILES ${VANTIRO_WINDOWS_SDK}/qt/bin/Qt6${library}.dll DESTINATION .)
    endforeach()
    foreach(plugin IN ITEMS platforms/qwindows imageformats/qjpeg imageformats/qgif imageformats/qico
            imageformats/qwebp sqldrivers/qsqlite styles/qwindowsvistastyle tls/qschannelbackend)
        get_filename_component(folder ${plugin} DIRECTORY)
        install(FILES ${VANTIRO_WINDOWS_SDK}/qt/plugins/${plugin}.dll DESTINATION ${folder})
    endforeach()
    install(FILES
        ${VANTIRO_WINDOWS_SDK}/mingw/libgcc_s_seh-1.dll
        ${VANTIRO_WINDOWS_SDK}/mingw/libstdc++-6.dll
        ${VANTIRO_WINDOWS_SDK}/mingw/libwinpthread-1.dll
        DESTINATION .)
    # The licences come from the packages that the libraries are built from.
    foreach(component IN ITEMS qt6-base-dev qt6-image-formats-plugins libvlc-dev
            g++-mingw-w64-x86-64-posix mingw-w64-x86-64-dev rapidjson-dev)
        install(FILES /usr/share/doc/${component}/copyright
                DESTINATION licenses RENAME ${component}.txt)
    endforeach()
    foreach(license IN ITEMS GPL-2 GPL-3 LGPL-2.1 LGPL-3)
        install(FILES /usr/share/common-licenses/${license}
                DESTINATION licenses RENAME ${license}.txt)
    endforeach()
    if(EXISTS ${VANTIRO_WINDOWS_SDK}/licenses)
        install(DIRECTORY ${VANTIRO_WINDOWS_SDK}/licenses/ DESTINATION licenses)
    endif()
else()
    qt_generate_deploy_app_script(TARGET vantiro-player FILENAME_VARIABLE deploy_script)
    install(SCRIPT ${deploy_script})
    set(VANTIRO_LICENSES "" CACHE PATH "Folder with the licence texts of Qt and of libVLC")
    if(VANTIRO_LICENSES)
        install(DIRECTORY ${VANTIRO_LICENSES}/ DESTINATION licenses)
    endif()
endif()

if(libvlc_runtime)
    install(FILES ${libvlc_runtime}/libvlc.dll ${libvlc_runtime}/libvlccore.dll DESTINATION .)
    # Without VLC's own user interfaces and without plugins that serve, record or convert.
    install(DIRECTORY ${libvlc_runtime}/plugins DESTINATION .
        FILES_MATCHING PATTERN "*.dll"
        PATTERN access_output EXCLUDE
        PATTERN control EXCLUDE
        PATTERN gui EXCLUDE
        PATTERN lua EXCLUDE
        PATTERN mux EXCLUDE
        PATTERN services_discovery EXCLUDE
        PATTERN stream_out EXCLUDE
        PATTERN visualization EXCLUDE)
else()
    message(STATUS "The package will be without libVLC: VANTIRO_LIBVLC_RUNTIME names no folder")
    install(FILES ${CMAKE_CURRENT_LIST_DIR}/libvlc-missing.txt DESTINATION .)
endif()

set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_FILE_NAME vantiro-player-${PROJECT_VERSION}-win64)
set(CPACK_PACKAGE_INSTALL_DIRECTORY "Vantiro Player")
set(CPACK_PACKAGE_EXECUTABLES vantiro-player "Vantiro Player")
find_program(VANTIRO_MAKENSIS makensis)
if(VANTIRO_MAKENSIS)
    list(APPEND CPACK_GENERATOR NSIS)
endif()
set(CPACK_NSIS_DISPLAY_NAME "Vantiro Player")
set(CPACK_NSIS_PACKAGE_NAME "Vantiro Player")
set(CPACK_NSIS_INSTALL_ROOT "$PROGRAMFILES64")
set(CPACK_NSIS_DEFINES "Target amd64-unicode")
set(CPACK_NSIS_EXECUTABLES_DIRECTORY .)
set(CPACK_NSIS_INSTALLED_ICON_NAME vantiro-player.exe)
set(CPACK_NSIS_MUI_ICON ${PROJECT_SOURCE_DIR}/packaging/icon/vantiro-player.ico)
set(CPACK_NSIS_MUI_UNIICON ${PROJECT_SOURCE_DIR}/packaging/icon/vantiro-player.ico)
set(CPACK_NSIS_ENABLE_UNINSTALL_BEFORE_INSTALL ON)
include(${CMAKE_CURRENT_LIST_DIR}/file-types.cmake)

if(VANTIRO_BUILD_TESTS AND CMAKE_CROSSCOMPILING)
    add_test(NAME package.windows
        COMMAND ${PROJECT_SOURCE_DIR}/tests/package/windows
            ${PROJECT_BINARY_DIR} ${VANTIRO_WINDOWS_SDK} ${PROJECT_VERSION})
    set_tests_properties(package.windows PROPERTIES
        TIMEOUT 300 SKIP_RETURN_CODE 77 LABELS package)
endif()
