# CLI11::CLI11, the reader of the command line. It is headers alone, so a cross-build uses this
# machine's, through a folder that holds nothing else of this machine.
if(NOT CMAKE_CROSSCOMPILING)
    find_package(CLI11 REQUIRED)
else()
    find_path(KELVANE_CLI11 CLI/CLI.hpp REQUIRED NO_CMAKE_FIND_ROOT_PATH PATHS /usr/include)
    set(headers "${CMAKE_BINARY_DIR}/headers")
    file(MAKE_DIRECTORY "${headers}")
    file(CREATE_LINK "${KELVANE_CLI11}/CLI" "${headers}/CLI" SYMBOLIC)
    add_library(CLI11::CLI11 INTERFACE IMPORTED)
    target_include_directories(CLI11::CLI11 INTERFACE "${headers}")
endif()
