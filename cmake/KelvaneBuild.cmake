# How every target of the project is built.
include(GNUInstallDirs)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

# A project that takes this one in chooses its own way to the compiler.
if(PROJECT_IS_TOP_LEVEL)
    find_program(KELVANE_CCACHE ccache)
endif()
if(KELVANE_CCACHE)
    # As it asks for where headers are compiled beforehand.
    set(CMAKE_CXX_COMPILER_LAUNCHER
        env CCACHE_SLOPPINESS=pch_defines,time_macros "${KELVANE_CCACHE}")
    add_compile_options($<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
endif()

add_library(kelvane_warnings INTERFACE)
target_compile_options(kelvane_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow $<$<BOOL:${KELVANE_WERROR}>:-Werror>
    # GCC 12 warns of an overlap in "text" + std::string that cannot be (its bug 105651).
    $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>)

if(KELVANE_SANITIZE)
    # GCC's instrumented code confuses this one warning.
    target_compile_options(kelvane_warnings INTERFACE
        $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
                        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()
if(KELVANE_FUZZ)
    # What libFuzzer follows a run by; the fuzz targets alone are linked with libFuzzer itself.
    add_compile_options(-fsanitize=fuzzer-no-link)
    add_link_options(-fsanitize=fuzzer-no-link)
endif()

# The standard headers that most sources include, compiled once for all libraries: they are most of
# what a compiler reads. A source still includes what it uses; the release and the one for 64-bit
# Windows are compiled without (CMAKE_DISABLE_PRECOMPILE_HEADERS).
set(KELVANE_STANDARD_HEADERS
    <algorithm> <array> <charconv> <cstdint> <filesystem> <functional> <map> <memory> <optional> <span>
    <stdexcept> <string> <string_view> <utility> <vector>)
if(NOT CMAKE_DISABLE_PRECOMPILE_HEADERS)
    # GCC 12 then warns of the same bug under these names, too; the builds without still heed it.
    target_compile_options(kelvane_warnings INTERFACE
        $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-array-bounds;-Wno-stringop-overflow>)
    # All targets share them, the ones that need threads included.
    if(NOT WIN32)
        add_compile_options(-pthread)
    endif()
endif()
file(WRITE "${PROJECT_BINARY_DIR}/headers.cpp" "")
add_library(kelvane_headers OBJECT "${PROJECT_BINARY_DIR}/headers.cpp")
target_link_libraries(kelvane_headers PRIVATE kelvane_warnings)
target_precompile_headers(kelvane_headers PRIVATE ${KELVANE_STANDARD_HEADERS})

# kelvane_library(NAME SOURCES... [OWN_HEADERS]): one folder's static library. Includes name their
# folder ("data/number_format.h"), so the only include folder is the project's root. OWN_HEADERS: it
# is compiled in another way than the others and cannot use the headers that they share.
function(kelvane_library name)
    cmake_parse_arguments(arg "OWN_HEADERS" "" "" ${ARGN})
    set(sources ${arg_UNPARSED_ARGUMENTS})
    if(NOT sources)  # a folder whose first source is still to come
        set(sources "${CMAKE_CURRENT_BINARY_DIR}/${name}_empty.cpp")
        file(TOUCH "${sources}")
    endif()
    add_library(${name} STATIC ${sources})
    target_include_directories(${name} PUBLIC
        $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
        $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
    target_compile_features(${name} PUBLIC cxx_std_20)
    target_link_libraries(${name} PRIVATE $<BUILD_INTERFACE:kelvane_warnings>)
    if(NOT arg_OWN_HEADERS)
        target_precompile_headers(${name} REUSE_FROM kelvane_headers)
    endif()
endfunction()
