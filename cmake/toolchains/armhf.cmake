# 32-bit ARM, the CPU of the TV sets.
set(CMAKE_SYSTEM_PROCESSOR armv7l)
set(arch armhf)
set(triplet arm-linux-gnueabihf)
set(emulator qemu-arm -L)
# No notes about calling conventions that changed after GCC 6.
set(CMAKE_CXX_FLAGS_INIT -Wno-psabi)
include(${CMAKE_CURRENT_LIST_DIR}/Debian.cmake)
