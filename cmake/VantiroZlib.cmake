# Defines vantiro_zlib: zlib of the system, or the copy that Qt contains where the system has none.

find_package(ZLIB QUIET)
add_library(vantiro_zlib INTERFACE)
if(ZLIB_FOUND)
    target_link_libraries(vantiro_zlib INTERFACE ZLIB::ZLIB)
else()
    find_package(Qt6 REQUIRED COMPONENTS ZlibPrivate)
    target_link_libraries(vantiro_zlib INTERFACE Qt6::ZlibPrivate Qt6::Core)
endif()
