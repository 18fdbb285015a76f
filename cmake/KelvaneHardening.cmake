# What every binary is built with so that a fault in it is harder to use, and so that it does not
# tell where it was built. Each flag where the compiler or the linker knows it.
option(KELVANE_HARDEN "Build hardened; OFF to measure what that costs" ON)

include(CheckCXXCompilerFlag)
include(CheckLinkerFlag)
include(CheckPIESupported)
check_pie_supported()

set(kelvane_compile_flags -fstack-protector-strong)
if(WIN32)
    # Addresses by chance, in all 64 bits where there are so many, and no code in data.
    set(kelvane_link_flags -Wl,--dynamicbase -Wl,--nxcompat -Wl,--high-entropy-va)
    if(CMAKE_SIZEOF_VOID_P EQUAL 4)
        list(REMOVE_ITEM kelvane_link_flags -Wl,--high-entropy-va)
    endif()
    # The functions that a guarded one calls.
    list(APPEND kelvane_link_flags -fstack-protector-strong)
else()
    set(kelvane_link_flags -Wl,-z,relro -Wl,-z,now)
    if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64|i[3-6]86)$")
        list(APPEND kelvane_compile_flags -fcf-protection=full)
    endif()
endif()

if(NOT KELVANE_HARDEN)
    set(kelvane_compile_flags)
    set(kelvane_link_flags)
endif()
foreach(flag ${kelvane_compile_flags})
    string(MAKE_C_IDENTIFIER "KELVANE_HAS${flag}" known)
    check_cxx_compiler_flag(${flag} ${known})
    if(${known})
        add_compile_options(${flag})
    endif()
endforeach()
foreach(flag ${kelvane_link_flags})
    string(MAKE_C_IDENTIFIER "KELVANE_LINKS${flag}" known)
    check_linker_flag(CXX ${flag} ${known})
    if(${known})
        add_link_options(${flag})
    endif()
endforeach()

# It needs an optimising compiler, so a preset that optimises a Debug build says so itself; the
# sanitizers see more than it does.
if(KELVANE_HARDEN AND NOT KELVANE_SANITIZE)
    add_compile_options(
        "$<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
endif()

# The last one that fits holds: the build's folder may lie in the source's.
add_compile_options("-ffile-prefix-map=${PROJECT_SOURCE_DIR}=."
                    "-ffile-prefix-map=${PROJECT_BINARY_DIR}=./build")
