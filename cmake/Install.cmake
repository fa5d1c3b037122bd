# What goes where: component `tool` is what ships on a set, `platform` the workstation's television, `dev` the headers.
include(GNUInstallDirs)
set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
find_program(GZIP gzip REQUIRED NO_CMAKE_FIND_ROOT_PATH)

# manual(COMPONENT PAGE): man/PAGE.in with the version filled in, compressed as Debian has it.
function(manual component page)
    string(REGEX MATCH "[0-9]$" section ${page})
    set(made ${PROJECT_BINARY_DIR}/man/${page})
    configure_file(man/${page}.in ${made} @ONLY)
    add_custom_command(OUTPUT ${made}.gz COMMAND ${GZIP} -9nkf ${made} DEPENDS ${made} VERBATIM)
    add_custom_target(manual-${page} ALL DEPENDS ${made}.gz)
    install(FILES ${made}.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man${section} COMPONENT ${component})
endfunction()

install(TARGETS DebugUtil COMPONENT tool)
manual(tool DebugUtil.1)
install(FILES src/debugutil/DebugMenuTPMS.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/debugutil COMPONENT dev)
if(NOT DEBUGUTIL_PLATFORM STREQUAL "host")
    return()
endif()

install(TARGETS tvs-api debugmenu-utility vconf tvs-host LIBRARY COMPONENT platform)
install(TARGETS tvserviced RUNTIME DESTINATION ${CMAKE_INSTALL_SBINDIR} COMPONENT platform)
install(TARGETS ht-debugmenu LIBRARY DESTINATION lib COMPONENT platform) # the tool asks for /usr/lib
install(FILES platform/host/messaging/dbus/com.kavrin.IDebugPrintControl.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/dbus-1/interfaces COMPONENT platform)
install(FILES platform/host/messaging/dbus/com.kavrin.TVService.conf
    DESTINATION ${CMAKE_INSTALL_DATADIR}/dbus-1/system.d COMPONENT platform)

# install_located(FILE FOLDER): a file that names tvserviced by its path, which is known when it is installed.
function(install_located file folder)
    install(CODE "
        set(TVSERVICED \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_SBINDIR}/tvserviced\")
        configure_file(\"${PROJECT_SOURCE_DIR}/platform/host/messaging/dbus/${file}.in\"
            \"${PROJECT_BINARY_DIR}/located/${file}\" @ONLY)
        file(INSTALL \"${PROJECT_BINARY_DIR}/located/${file}\" DESTINATION \"\${CMAKE_INSTALL_PREFIX}/${folder}\")"
        COMPONENT platform)
endfunction()
install_located(com.kavrin.TVService.service ${CMAKE_INSTALL_DATADIR}/dbus-1/system-services)
install_located(tvserviced.service lib/systemd/system)
manual(lab debugutil-script.1)
manual(platform tvserviced.8)
# The operations of a scenario and a trace have one list.
set(list ${PROJECT_SOURCE_DIR}/platform/host/call/Operations.def)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${list})
file(STRINGS ${list} OPERATIONS REGEX "^[A-Z]+\\(")
list(TRANSFORM OPERATIONS REPLACE "^[A-Z]+\\((.*)\\)$" ".It\n.Li \\1")
list(TRANSFORM OPERATIONS REPLACE ", " "::")
list(JOIN OPERATIONS "\n" OPERATIONS)
manual(platform tvs-scenario.5)

install(DIRECTORY platform/include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT dev)
file(RELATIVE_PATH PREFIX_FROM_PC /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(packaging/debugutil.pc.in ${PROJECT_BINARY_DIR}/debugutil.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/debugutil.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT dev)

# Programs look for the libraries beside themselves. Where they are installed nothing is left of the build's own layout,
# and under /usr, where the loader finds them by itself, of theirs neither. (CMake would do the former, but with empty
# paths in the build's programs, which are the current folder.)
file(RELATIVE_PATH libraries_from_bin /${CMAKE_INSTALL_BINDIR} /${CMAKE_INSTALL_LIBDIR})
function(runpath component target folder built installed)
    set_target_properties(${target} PROPERTIES BUILD_WITH_INSTALL_RPATH ON INSTALL_RPATH "${built}")
    string(REPLACE ";" ":" built "${built}")
    install(CODE "
        set(file \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${folder}/$<TARGET_FILE_NAME:${target}>\")
        if(CMAKE_INSTALL_PREFIX STREQUAL \"/usr\")
            file(RPATH_REMOVE FILE \"\${file}\")
        else()
            file(RPATH_CHANGE FILE \"\${file}\" OLD_RPATH \"${built}\" NEW_RPATH \"${installed}\")
        endif()"
        COMPONENT ${component})
endfunction()
set(beside "\$ORIGIN/${libraries_from_bin}")
runpath(tool DebugUtil ${CMAKE_INSTALL_BINDIR} "\$ORIGIN/../sysroot/usr/lib;${beside}" ${beside})
runpath(platform tvserviced ${CMAKE_INSTALL_SBINDIR} "\$ORIGIN/../sysroot/usr/lib;${beside}" ${beside})
foreach(library tvs-api debugmenu-utility vconf)
    runpath(platform ${library} ${CMAKE_INSTALL_LIBDIR} "\$ORIGIN" "\$ORIGIN")
endforeach()
