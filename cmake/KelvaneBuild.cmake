# How every target of the project is built.
include(GNUInstallDirs)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

find_program(KELVANE_CCACHE ccache)
if(KELVANE_CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${KELVANE_CCACHE}")
endif()

add_library(kelvane_warnings INTERFACE)
target_compile_options(kelvane_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror
    # GCC 12 warns of an overlap in "text" + std::string that cannot be (its bug 105651).
    $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>)

if(KELVANE_SANITIZE)
    # GCC's instrumented code confuses this one warning.
    target_compile_options(kelvane_warnings INTERFACE -Wno-maybe-uninitialized)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
                        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()

# kelvane_library(NAME SOURCES...): one folder's static library. Includes name their folder
# ("data/number_format.h"), so the only include folder is the project's root.
function(kelvane_library name)
    set(sources ${ARGN})
    if(NOT sources)  # a folder whose first source is still to come
        set(sources "${CMAKE_CURRENT_BINARY_DIR}/${name}_empty.cpp")
        file(TOUCH "${sources}")
    endif()
    add_library(${name} STATIC ${sources})
    target_include_directories(${name} PUBLIC
        $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
        $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/kelvane>)
    target_compile_features(${name} PUBLIC cxx_std_20)
    target_link_libraries(${name} PRIVATE $<BUILD_INTERFACE:kelvane_warnings>)
endfunction()
