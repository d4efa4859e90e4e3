# The device's processor: 32-bit big-endian, with Debian's cross compiler; its programs run on the
# build machine under user-mode emulation.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR mips)
set(CMAKE_C_COMPILER mips-linux-gnu-gcc)
set(CMAKE_CXX_COMPILER mips-linux-gnu-g++)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-mips-static -L /usr/mips-linux-gnu)
set(CMAKE_FIND_ROOT_PATH /usr/mips-linux-gnu)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)

# Flash is small: short instructions, and a program at a fixed address.
set(CMAKE_CXX_FLAGS_INIT "-fno-pie -mips16 -minterlink-mips16 -mno-shared -mplt")
set(CMAKE_EXE_LINKER_FLAGS_INIT "-no-pie -Wl,-z,max-page-size=4096")
set(WAP_PIE OFF CACHE BOOL "")
set(WAP_LTO ON CACHE BOOL "")
