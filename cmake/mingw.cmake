# What the toolchains for Windows have in common; `kelvane_triplet` names the compiler's target.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_C_COMPILER ${kelvane_triplet}-gcc-posix)
set(CMAKE_CXX_COMPILER ${kelvane_triplet}-g++-posix)
set(CMAKE_RC_COMPILER ${kelvane_triplet}-windres)
set(KELVANE_WIDL ${kelvane_triplet}-widl)

# Libraries and headers are the target's, programs this machine's.
list(APPEND CMAKE_FIND_ROOT_PATH /usr/${kelvane_triplet})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Nothing to ship beside the program: the compiler's runtime is linked in, what nobody calls is not.
set(CMAKE_CXX_FLAGS_INIT "-ffunction-sections -fdata-sections")
set(kelvane_link "-static -Wl,--gc-sections -Wl,--no-insert-timestamp")
set(CMAKE_EXE_LINKER_FLAGS_INIT "${kelvane_link}")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "${kelvane_link}")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "${kelvane_link}")
