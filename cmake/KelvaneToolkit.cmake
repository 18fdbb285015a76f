# kelvane_wx: the window toolkit, as its own wx-config describes it. For Windows that is the one that
# scripts/windows-library built; wxWidgets_CONFIG_EXECUTABLE names it.
add_library(kelvane_wx INTERFACE)
if(NOT WIN32)
    find_package(wxWidgets 3.2 REQUIRED COMPONENTS core base)
    separate_arguments(wx_flags NATIVE_COMMAND "${wxWidgets_CXX_FLAGS}")
    target_include_directories(kelvane_wx SYSTEM INTERFACE ${wxWidgets_INCLUDE_DIRS})
    target_compile_definitions(kelvane_wx INTERFACE ${wxWidgets_DEFINITIONS})
    target_compile_options(kelvane_wx INTERFACE ${wx_flags})
    target_link_libraries(kelvane_wx INTERFACE ${wxWidgets_LIBRARIES})
    return()
endif()

if(NOT wxWidgets_CONFIG_EXECUTABLE)
    message(FATAL_ERROR "wxWidgets_CONFIG_EXECUTABLE names no wx-config; use scripts/build-windows")
endif()
foreach(kind cxxflags libs)
    execute_process(COMMAND ${wxWidgets_CONFIG_EXECUTABLE} --${kind} core base
                    OUTPUT_VARIABLE wx_${kind} OUTPUT_STRIP_TRAILING_WHITESPACE
                    COMMAND_ERROR_IS_FATAL ANY)
    separate_arguments(wx_${kind} NATIVE_COMMAND "${wx_${kind}}")
endforeach()
list(TRANSFORM wx_cxxflags REPLACE "^-I" "-isystem")
# Whether a program has a console is for the program to say.
list(FILTER wx_libs EXCLUDE REGEX "-mwindows|--subsystem")
# Assertions in its headers name their file.
get_filename_component(wx_folder "${wxWidgets_CONFIG_EXECUTABLE}" DIRECTORY)
get_filename_component(wx_folder "${wx_folder}" DIRECTORY)
target_compile_options(kelvane_wx INTERFACE ${wx_cxxflags} "-ffile-prefix-map=${wx_folder}=wx")
target_link_libraries(kelvane_wx INTERFACE ${wx_libs})
