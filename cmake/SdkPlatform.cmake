# A set's SDK in place of the host platform. Under its root folder it provides the headers of platform/include in
# usr/include, spelled alike, and the libraries below in usr/lib.
add_library(platform INTERFACE)
target_include_directories(platform SYSTEM INTERFACE ${DEBUGUTIL_PLATFORM}/usr/include)
foreach(name tvs-api debugmenu-utility vconf)
    find_library(SDK_${name} ${name} PATHS ${DEBUGUTIL_PLATFORM}/usr/lib NO_DEFAULT_PATH REQUIRED)
    target_link_libraries(platform INTERFACE ${SDK_${name}})
endforeach()
