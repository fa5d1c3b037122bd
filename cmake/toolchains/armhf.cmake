# 32-bit ARM, the CPU of the sets.
set(CMAKE_SYSTEM_PROCESSOR armv7l)
set(arch armhf)
set(triplet arm-linux-gnueabihf)
set(emulator qemu-arm -L)
# The compiler would tell of each difference to the calls of its 6th version.
set(CMAKE_CXX_FLAGS_INIT -Wno-psabi)
include(${CMAKE_CURRENT_LIST_DIR}/Debian.cmake)
