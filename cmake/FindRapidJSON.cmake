# Finds RapidJSON (headers only) and defines RapidJSON::RapidJSON.
#
# RapidJSON_ROOT may name the folder that contains include/rapidjson. The headers suit every target, so
# a cross build uses the building machine's, through a link: the other headers of that machine must
# stay invisible.

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
