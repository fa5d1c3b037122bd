# 32-bit programs on a PC. They run without an emulator, with the loader and the libraries of the root folder.
set(CMAKE_SYSTEM_PROCESSOR i686)
set(arch i386)
set(triplet i686-linux-gnu)
set(libraries i386-linux-gnu)
set(emulator ${CMAKE_CURRENT_LIST_DIR}/i386-loader)
include(${CMAKE_CURRENT_LIST_DIR}/Debian.cmake)
