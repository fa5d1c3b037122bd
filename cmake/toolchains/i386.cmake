# 32 bits on a workstation, whose own CPU runs them: all that is missing there is the loader and its libraries.
set(CMAKE_SYSTEM_PROCESSOR i686)
set(arch i386)
set(triplet i686-linux-gnu)
set(libraries i386-linux-gnu)
include(${CMAKE_CURRENT_LIST_DIR}/Debian.cmake)
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_SYSROOT}/lib/ld-linux.so.2
    --library-path ${CMAKE_SYSROOT}/lib/${libraries}:${CMAKE_SYSROOT}/usr/lib/${libraries})
