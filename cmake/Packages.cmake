# `cpack -G DEB`: a package for each component. CHANGELOG tells their date, so that they are the same bytes whenever and
# wherever they are made.
file(STRINGS CHANGELOG released LIMIT_COUNT 1)
if(NOT released MATCHES "^debugutil \\(${PROJECT_VERSION}\\)")
    message(FATAL_ERROR "CHANGELOG does not begin with version ${PROJECT_VERSION}")
endif()
file(STRINGS CHANGELOG signed LIMIT_COUNT 1 REGEX "^ -- ")
string(REGEX REPLACE "^ -- (.*)  (.*)$" "\\1" CPACK_PACKAGE_CONTACT "${signed}")
execute_process(COMMAND date -u -d "${CMAKE_MATCH_2}" +%s
    OUTPUT_VARIABLE epoch OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/CPackDate.cmake @ONLY CONTENT "set(ENV{SOURCE_DATE_EPOCH} @epoch@)\n")
set(CPACK_PROJECT_CONFIG_FILE ${PROJECT_BINARY_DIR}/CPackDate.cmake)

set(CPACK_COMPONENTS_ALL tool platform dev)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_STRIP_FILES ON)
set(CPACK_SET_DESTDIR ON)
set(CPACK_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS ${CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS})
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/sysroot/usr/lib)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON) # each on the very same version
set(CPACK_COMPONENT_TOOL_DEPENDS platform)
set(CPACK_COMPONENT_DEV_DEPENDS platform)

set(CPACK_DEBIAN_TOOL_PACKAGE_NAME debugutil)
set(CPACK_DEBIAN_TOOL_PACKAGE_SECTION utils)
set(CPACK_COMPONENT_TOOL_DESCRIPTION "text console of the TV service's engineers
Calls single operations of a television's TV service from numbered menus, and
prints what comes back: tuning, sources, video and audio pipelines, service
lists, guide data. Opens the debug menu that runs inside the TV service.")
set(CPACK_DEBIAN_PLATFORM_PACKAGE_NAME debugutil-platform)
set(CPACK_DEBIAN_PLATFORM_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_PLATFORM_PACKAGE_RECOMMENDS "default-dbus-system-bus | dbus-system-bus")
set(CPACK_DEBIAN_PLATFORM_PACKAGE_CONTROL_EXTRA
    ${PROJECT_SOURCE_DIR}/packaging/triggers ${PROJECT_SOURCE_DIR}/packaging/prerm)
set(CPACK_COMPONENT_PLATFORM_DESCRIPTION "simulated television behind the TV service's debug console
What stands behind debugutil on a workstation: a television that a scenario
file describes, a trace of every call, the HT debug menu plug-in, and the TV
service's own debug menu as a service on D-Bus.")
set(CPACK_DEBIAN_DEV_PACKAGE_NAME debugutil-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_COMPONENT_DEV_DESCRIPTION "headers for plug-ins of the TV service's debug console
For authors of debug-menu plug-ins, and for builds of debugutil against the
simulated television of a workstation.")

# What Debian wants to find of every package.
set(documents ${PROJECT_BINARY_DIR}/documents)
add_custom_command(OUTPUT ${documents}/changelog.gz
    COMMAND ${CMAKE_COMMAND} -E copy ${PROJECT_SOURCE_DIR}/CHANGELOG ${documents}/changelog
    COMMAND ${GZIP} -9nf ${documents}/changelog DEPENDS CHANGELOG VERBATIM)
add_custom_target(documents ALL DEPENDS ${documents}/changelog.gz)
foreach(component ${CPACK_COMPONENTS_ALL})
    string(TOUPPER ${component} key)
    set(package ${CPACK_DEBIAN_${key}_PACKAGE_NAME})
    install(FILES ${documents}/changelog.gz packaging/copyright
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package} COMPONENT ${component})
    if(EXISTS ${PROJECT_SOURCE_DIR}/packaging/${package}.lintian-overrides)
        install(FILES packaging/${package}.lintian-overrides RENAME ${package}
            DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides COMPONENT ${component})
    endif()
endforeach()
include(CPack)
