# A big-endian CPU.
set(CMAKE_SYSTEM_PROCESSOR s390x)
set(arch s390x)
set(triplet s390x-linux-gnu)
set(emulator qemu-s390x -L)
include(${CMAKE_CURRENT_LIST_DIR}/Debian.cmake)
