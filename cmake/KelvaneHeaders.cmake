# CLI11::CLI11, the reader of the command line, and nlohmann_json::nlohmann_json. They are headers
# alone, so a cross-build uses this machine's, through a folder that holds nothing else of this machine.

# kelvane_header_library(PACKAGE TARGET FOLDER FILE): the headers FOLDER/... of PACKAGE, of which FILE is one.
macro(kelvane_header_library package target folder file)
    if(NOT CMAKE_CROSSCOMPILING)
        find_package(${package} REQUIRED)
    else()
        find_path(KELVANE_${package} ${folder}/${file} REQUIRED NO_CMAKE_FIND_ROOT_PATH
                  PATHS /usr/include)
        set(kelvane_header_folder "${CMAKE_BINARY_DIR}/headers")
        file(MAKE_DIRECTORY "${kelvane_header_folder}")
        file(CREATE_LINK "${KELVANE_${package}}/${folder}" "${kelvane_header_folder}/${folder}"
             SYMBOLIC)
        add_library(${target} INTERFACE IMPORTED)
        target_include_directories(${target} INTERFACE "${kelvane_header_folder}")
    endif()
endmacro()

kelvane_header_library(CLI11 CLI11::CLI11 CLI CLI.hpp)
kelvane_header_library(nlohmann_json nlohmann_json::nlohmann_json nlohmann json.hpp)
