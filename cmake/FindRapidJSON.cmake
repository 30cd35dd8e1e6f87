# Finds RapidJSON (headers only) and offers it as RapidJSON::RapidJSON.
#
# RapidJSON_ROOT may name the folder in which include/rapidjson lies. The headers serve every target,
# so those of the building machine are taken in a cross build too: through a link, since the rest of
# the machine's include folder must not be seen there.

find_path(RapidJSON_INCLUDE_DIR rapidjson/reader.h NO_CMAKE_FIND_ROOT_PATH)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(RapidJSON REQUIRED_VARS RapidJSON_INCLUDE_DIR)

if(RapidJSON_FOUND AND NOT TARGET RapidJSON::RapidJSON)
    set(linked ${CMAKE_BINARY_DIR}/rapidjson-include)
    if(CMAKE_HOST_WIN32) # where a link needs rights that few have
        set(linked ${RapidJSON_INCLUDE_DIR})
    else()
        file(MAKE_DIRECTORY ${linked})
        file(CREATE_LINK ${RapidJSON_INCLUDE_DIR}/rapidjson ${linked}/rapidjson SYMBOLIC)
    endif()
    add_library(RapidJSON::RapidJSON INTERFACE IMPORTED)
    target_include_directories(RapidJSON::RapidJSON SYSTEM INTERFACE ${linked})
endif()
mark_as_advanced(RapidJSON_INCLUDE_DIR)
