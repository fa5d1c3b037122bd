# Installation. Component `tool` ships on a TV set, `platform` is the workstation's simulated TV service, `dev` has the
# headers, `lab` has debugutil-script and examples for scripts and labs.
include(GNUInstallDirs)
find_program(GZIP gzip REQUIRED NO_CMAKE_FIND_ROOT_PATH)

# place(COMPONENT FOLDER ARGUMENTS...): install(ARGUMENTS...) into that folder. Makes a missing folder with mode 755; CMake
# would apply the umask.
function(place component folder)
    install(CODE "execute_process(COMMAND sh -c [[umask 022 && exec mkdir -p \"$0\"]]
        \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${folder}\" COMMAND_ERROR_IS_FATAL ANY)" COMPONENT ${component})
    install(${ARGN} DESTINATION ${folder} COMPONENT ${component})
endfunction()

# manual(COMPONENT PAGE): installs man/PAGE.in with the version filled in, compressed as Debian requires.
function(manual component page)
    string(REGEX MATCH "[0-9]$" section ${page})
    set(made ${PROJECT_BINARY_DIR}/man/${page})
    configure_file(man/${page}.in ${made} @ONLY)
    add_custom_command(OUTPUT ${made}.gz COMMAND ${GZIP} -9nkf ${made} DEPENDS ${made} VERBATIM)
    add_custom_target(manual-${page} ALL DEPENDS ${made}.gz)
    place(${component} ${CMAKE_INSTALL_MANDIR}/man${section} FILES ${made}.gz)
endfunction()

place(tool ${CMAKE_INSTALL_BINDIR} TARGETS DebugUtil)
manual(tool DebugUtil.1)
place(dev ${CMAKE_INSTALL_INCLUDEDIR}/debugutil FILES src/debugutil/DebugMenuTPMS.h)
if(NOT DEBUGUTIL_PLATFORM STREQUAL "host")
    return()
endif()

place(platform ${CMAKE_INSTALL_LIBDIR} TARGETS tvs-api debugmenu-utility vconf tvs-host)
place(platform ${CMAKE_INSTALL_SBINDIR} TARGETS tvserviced)
place(platform lib TARGETS ht-debugmenu) # the tool loads it from /usr/lib
set(dbus platform/host/messaging/dbus)
place(platform ${CMAKE_INSTALL_DATADIR}/dbus-1/interfaces FILES ${dbus}/com.kavrin.IDebugPrintControl.xml)
place(platform ${CMAKE_INSTALL_DATADIR}/dbus-1/system.d FILES ${dbus}/com.kavrin.TVService.conf)

# place_with_path(FOLDER FILE): installs a file with the path of tvserviced, which is only known at installation.
function(place_with_path folder file)
    set(made ${PROJECT_BINARY_DIR}/with-path/${file})
    install(CODE "
        set(TVSERVICED \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_SBINDIR}/tvserviced\")
        configure_file(\"${PROJECT_SOURCE_DIR}/${dbus}/${file}.in\" \"${made}\" @ONLY)" COMPONENT platform)
    place(platform ${folder} FILES ${made})
endfunction()
place_with_path(${CMAKE_INSTALL_DATADIR}/dbus-1/system-services com.kavrin.TVService.service)
place_with_path(lib/systemd/system tvserviced.service)
place(lab ${CMAKE_INSTALL_BINDIR} TARGETS debugutil-script)
manual(lab debugutil-script.1)
manual(platform tvserviced.8)
# tvs-scenario(5) lists the operations.
set(list ${PROJECT_SOURCE_DIR}/platform/host/call/Operations.def)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${list})
file(STRINGS ${list} OPERATIONS REGEX "^[A-Z]+\\(")
list(TRANSFORM OPERATIONS REPLACE "^[A-Z]+\\((.*)\\)$" ".It\n.Li \\1")
list(TRANSFORM OPERATIONS REPLACE ", " "::")
list(JOIN OPERATIONS "\n" OPERATIONS)
manual(platform tvs-scenario.5)

place(dev ${CMAKE_INSTALL_INCLUDEDIR} DIRECTORY platform/include/)
file(RELATIVE_PATH PREFIX_FROM_PC /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(packaging/debugutil.pc.in ${PROJECT_BINARY_DIR}/debugutil.pc @ONLY)
place(dev ${CMAKE_INSTALL_LIBDIR}/pkgconfig FILES ${PROJECT_BINARY_DIR}/debugutil.pc)

set(examples ${CMAKE_INSTALL_DATADIR}/doc/debugutil-lab/examples)
place(lab ${examples}/lab PROGRAMS examples/lab/on-all-sets)
place(lab ${examples}/lab FILES examples/lab/set-source.script examples/lab/set-source.t
    examples/lab/set-source.words)
place(lab ${examples}/plug-in FILES examples/plug-in/README.md examples/plug-in/SourcePlugIn.cpp)
place(lab ${examples} FILES platform/host/call/BuiltIn.scenario)

# Programs have a relative RUNPATH, which is the same in the build tree (through a link) and after installation. Under /usr
# it is removed. (CMake could change the RUNPATH at installation, but then that of the build tree ends with an empty
# entry, which means the current folder.)
file(RELATIVE_PATH libraries_from_bin /${CMAKE_INSTALL_BINDIR} /${CMAKE_INSTALL_LIBDIR})
set(link ${PROJECT_BINARY_DIR}/${CMAKE_INSTALL_LIBDIR})
file(REMOVE_RECURSE ${link}) # with another prefix it may be a folder
cmake_path(GET link PARENT_PATH folder)
file(MAKE_DIRECTORY ${folder})
file(CREATE_LINK ${PROJECT_BINARY_DIR}/sysroot/usr/lib ${link} SYMBOLIC)
function(runpath component target folder path)
    set_target_properties(${target} PROPERTIES BUILD_WITH_INSTALL_RPATH ON INSTALL_RPATH ${path})
    install(CODE "
        if(CMAKE_INSTALL_PREFIX STREQUAL \"/usr\")
            execute_process(COMMAND chrpath --delete
                \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${folder}/$<TARGET_FILE_NAME:${target}>\"
                RESULT_VARIABLE failed OUTPUT_QUIET)
            if(NOT failed EQUAL 0)
                message(WARNING \"${target} keeps its RUNPATH: chrpath: \${failed}\")
            endif()
        endif()" COMPONENT ${component})
endfunction()
runpath(tool DebugUtil ${CMAKE_INSTALL_BINDIR} "\$ORIGIN/${libraries_from_bin}")
runpath(platform tvserviced ${CMAKE_INSTALL_SBINDIR} "\$ORIGIN/${libraries_from_bin}")
foreach(library tvs-api debugmenu-utility vconf)
    runpath(platform ${library} ${CMAKE_INSTALL_LIBDIR} "\$ORIGIN")
endforeach()
