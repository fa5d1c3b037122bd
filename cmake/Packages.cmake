# `cpack -G DEB` makes a package for each component, and one with the debugging symbols. Their date is that of CHANGELOG,
# so that the packages are reproducible.
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
# CPack applies the umask to its folders and archive members, and CMake cannot set the umask. With a umask other than 022,
# cpack is therefore run again.
file(WRITE ${PROJECT_BINARY_DIR}/CPackUmask.cmake [[
execute_process(COMMAND sh -c "[ $(umask) = 0022 ] || { umask 022 && exec \"$@\"; }" sh
    ${CMAKE_CPACK_COMMAND} -G ${CPACK_GENERATOR} -B ${CPACK_PACKAGE_DIRECTORY} COMMAND_ERROR_IS_FATAL ANY)
]])
set(CPACK_POST_BUILD_SCRIPTS ${PROJECT_BINARY_DIR}/CPackUmask.cmake)

set(CPACK_COMPONENTS_ALL tool platform dev lab dbgsym)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_STRIP_FILES ON)
set(CPACK_SET_DESTDIR ON)
set(CPACK_INSTALL_PREFIX /usr)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/sysroot/usr/lib)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON) # of the same version
set(CPACK_COMPONENT_TOOL_DEPENDS platform)
set(CPACK_COMPONENT_DEV_DEPENDS platform)
set(CPACK_COMPONENT_LAB_DEPENDS tool)
set(CPACK_COMPONENT_DBGSYM_DEPENDS tool)

set(CPACK_DEBIAN_TOOL_PACKAGE_NAME debugutil)
set(CPACK_DEBIAN_TOOL_PACKAGE_SECTION utils)
set(CPACK_COMPONENT_TOOL_DESCRIPTION "text console of the TV service's engineers
Calls single operations of a TV set's TV service from numbered menus, and
prints their results: tuning, sources, video and audio pipelines, service
lists, guide data. Opens the debug menu that runs inside the TV service.")
set(CPACK_DEBIAN_PLATFORM_PACKAGE_NAME debugutil-platform)
set(CPACK_DEBIAN_PLATFORM_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_PLATFORM_PACKAGE_RECOMMENDS "default-dbus-system-bus | dbus-system-bus")
set(CPACK_DEBIAN_PLATFORM_PACKAGE_CONTROL_EXTRA
    ${PROJECT_SOURCE_DIR}/packaging/triggers ${PROJECT_SOURCE_DIR}/packaging/prerm
    ${PROJECT_SOURCE_DIR}/packaging/postinst ${PROJECT_SOURCE_DIR}/packaging/postrm)
set(CPACK_COMPONENT_PLATFORM_DESCRIPTION "simulated TV service for its debug console
What debugutil runs against on a workstation: a simulated TV service that a
scenario file describes, a trace of every call, the HT debug menu plug-in, and
the TV service's own debug menu as a service on D-Bus.")
set(CPACK_DEBIAN_DEV_PACKAGE_NAME debugutil-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_COMPONENT_DEV_DESCRIPTION "headers for plug-ins of the TV service's debug console
For authors of debug-menu plug-ins, and for builds of debugutil against the
simulated TV service of a workstation.")
set(CPACK_DEBIAN_LAB_PACKAGE_NAME debugutil-lab)
set(CPACK_DEBIAN_LAB_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_LAB_PACKAGE_RECOMMENDS "openssh-client, parallel, python3-cram")
set(CPACK_COMPONENT_LAB_DESCRIPTION "examples for scripts and labs with the TV service's debug console
A session on all TV sets of a lab at once, a session as a test, a plug-in, and
the built-in scenario of the simulated TV service, to start from.")

set(CPACK_DEBIAN_DBGSYM_PACKAGE_NAME debugutil-dbgsym)
set(CPACK_DEBIAN_DBGSYM_PACKAGE_SECTION debug)
set(CPACK_DEBIAN_DBGSYM_PACKAGE_SHLIBDEPS OFF)
set(CPACK_COMPONENT_DBGSYM_DESCRIPTION "debugging symbols of the TV service's debug console
With them gdb reads cores of the programs of debugutil and debugutil-platform.")

# gdb finds the symbols by build ID. (CPack's own symbol packages contain the path of the build folder.)
foreach(target DebugUtil tvserviced ht-debugmenu tvs-api debugmenu-utility vconf tvs-host)
    install(CODE "
        execute_process(COMMAND ${CMAKE_READELF} -n $<TARGET_FILE:${target}> OUTPUT_VARIABLE notes)
        if(NOT notes MATCHES \"Build ID: (..)([0-9a-f]+)\")
            message(FATAL_ERROR \"${target} has no build ID\")
        endif()
        set(folder \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/lib/debug/.build-id/\${CMAKE_MATCH_1}\")
        file(MAKE_DIRECTORY \"\${folder}\")
        set(symbols \"\${folder}/\${CMAKE_MATCH_2}.debug\")
        execute_process(COMMAND ${CMAKE_OBJCOPY} --only-keep-debug --compress-debug-sections $<TARGET_FILE:${target}>
            \"\${symbols}\" COMMAND_ERROR_IS_FATAL ANY)
        file(CHMOD \"\${symbols}\" PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)"
        COMPONENT dbgsym EXCLUDE_FROM_ALL)
endforeach()

# The documents that Debian requires of every package.
set(documents ${PROJECT_BINARY_DIR}/documents)
add_custom_command(OUTPUT ${documents}/changelog.gz
    COMMAND ${CMAKE_COMMAND} -E copy ${PROJECT_SOURCE_DIR}/CHANGELOG ${documents}/changelog
    COMMAND ${GZIP} -9nf ${documents}/changelog DEPENDS CHANGELOG VERBATIM)
add_custom_target(documents ALL DEPENDS ${documents}/changelog.gz)
foreach(component ${CPACK_COMPONENTS_ALL})
    string(TOUPPER ${component} key)
    set(package ${CPACK_DEBIAN_${key}_PACKAGE_NAME})
    place(${component} ${CMAKE_INSTALL_DATADIR}/doc/${package} FILES ${documents}/changelog.gz packaging/copyright)
    if(EXISTS ${PROJECT_SOURCE_DIR}/packaging/${package}.lintian-overrides)
        place(${component} ${CMAKE_INSTALL_DATADIR}/lintian/overrides
            FILES packaging/${package}.lintian-overrides RENAME ${package})
    endif()
endforeach()
include(CPack)
