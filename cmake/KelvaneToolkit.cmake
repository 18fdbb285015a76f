# Kelvane::wx for Windows: the window toolkit that scripts/windows-library built, as its own wx-config
# describes it; wxWidgets_CONFIG_EXECUTABLE names that. Elsewhere it is the system's
# (KelvaneDependencies).
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
add_library(Kelvane::wx INTERFACE IMPORTED)
target_compile_options(Kelvane::wx INTERFACE ${wx_cxxflags} "-ffile-prefix-map=${wx_folder}=wx")
target_link_libraries(Kelvane::wx INTERFACE ${wx_libs})
