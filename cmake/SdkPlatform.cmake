# A set's SDK in place of the host platform. Under its root folder it provides the headers of platform/include in
# usr/include, spelled alike, and the libraries below in usr/lib.
add_library(platform-headers INTERFACE)
target_include_directories(platform-headers SYSTEM INTERFACE ${DEBUGUTIL_PLATFORM}/usr/include)
add_library(platform INTERFACE)
target_link_libraries(platform INTERFACE platform-headers)
foreach(name tvs-api debugmenu-utility vconf)
    find_library(SDK_${name} ${name} PATHS ${DEBUGUTIL_PLATFORM}/usr/lib NO_DEFAULT_PATH REQUIRED)
    target_link_libraries(platform INTERFACE ${SDK_${name}})
endforeach()
# The SDK's libraries may need further ones of their own. On the set all of them lie where the loader looks.
target_link_options(platform INTERFACE LINKER:-rpath-link,${DEBUGUTIL_PLATFORM}/usr/lib)
set(CMAKE_SKIP_BUILD_RPATH ON)
