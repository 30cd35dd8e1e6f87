# The languages of the window: translations/vantiro_<language>.ts, edited by hand or with Qt Linguist.
#
# vantiro_add_translations(<target>) compiles each with Qt's lrelease and embeds it in the target as
# :/languages/vantiro_<language>.qm. Qt's tools are the building machine's, also in a cross build.
# Without lrelease the program speaks English only, which CMake reports.
#
# The target refresh_translations adds the texts that the sources have by now to every file, marked as
# unfinished, and takes out those that are gone.

# Where Debian has them, and where Qt's installer puts them.
set(qt_tool_folders /usr/lib/qt6/bin ${Qt6_DIR}/../../../bin)
find_program(VANTIRO_LRELEASE lrelease HINTS ${qt_tool_folders})
find_program(VANTIRO_LUPDATE lupdate HINTS ${qt_tool_folders})
mark_as_advanced(VANTIRO_LRELEASE VANTIRO_LUPDATE)

file(GLOB VANTIRO_TRANSLATIONS CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/translations/vantiro_*.ts)

function(vantiro_add_translations target)
    if(NOT VANTIRO_LRELEASE)
        message(STATUS "Not building the translations: Qt's lrelease is missing. "
                       "scripts/bootstrap installs it on Debian.")
        return()
    endif()
    set(folder ${PROJECT_BINARY_DIR}/translations)
    file(MAKE_DIRECTORY ${folder})
    set(compiled)
    foreach(source IN LISTS VANTIRO_TRANSLATIONS)
        get_filename_component(name ${source} NAME_WE)
        add_custom_command(OUTPUT ${folder}/${name}.qm
            COMMAND ${VANTIRO_LRELEASE} -silent ${source} -qm ${folder}/${name}.qm
            DEPENDS ${source}
            VERBATIM)
        list(APPEND compiled ${folder}/${name}.qm)
    endforeach()
    # zlib: a tool of the building machine may compress in a way that the target's Qt lacks.
    qt_add_resources(${target} languages PREFIX /languages BASE ${folder} FILES ${compiled}
                     OPTIONS --compress-algo zlib)
endfunction()

if(VANTIRO_LUPDATE)
    add_custom_target(refresh_translations
        COMMAND ${VANTIRO_LUPDATE} -locations none -no-obsolete ${PROJECT_SOURCE_DIR}/src
                -ts ${VANTIRO_TRANSLATIONS}
        VERBATIM)
endif()
