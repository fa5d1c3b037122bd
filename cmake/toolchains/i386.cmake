# 32 bits on a workstation, whose own CPU runs them: all that is missing there is the loader and its libraries.
set(CMAKE_SYSTEM_PROCESSOR i686)
set(arch i386)
set(triplet i686-linux-gnu)
set(libraries i386-linux-gnu)
set(emulator ${CMAKE_CURRENT_LIST_DIR}/i386-loader)
include(${CMAKE_CURRENT_LIST_DIR}/Debian.cmake)
