# The program's windows as a module, which the program loads when it opens one (surroundings/
# desktop_module.h). What the windows show is the program's own: the module holds no copy of the
# controls, it finds the program's.
file(RELATIVE_PATH module_folder "/${CMAKE_INSTALL_BINDIR}" "/${CMAKE_INSTALL_LIBDIR}/kelvane")

add_library(kelvane_desktop_module MODULE ${surroundings}/desktop_module.cpp ${screen}
            $<TARGET_OBJECTS:kelvane_desktop>)
set_target_properties(kelvane_desktop_module PROPERTIES
    PREFIX "" OUTPUT_NAME kelvane-desktop SUFFIX .so CXX_VISIBILITY_PRESET hidden
    MODULE_FOLDER ${module_folder}
    LIBRARY_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/${module_folder})
target_include_directories(kelvane_desktop_module PRIVATE ${PROJECT_SOURCE_DIR}
                                                          ${PROJECT_BINARY_DIR}/include)
target_link_libraries(kelvane_desktop_module
                      PRIVATE PkgConfig::Cairo PkgConfig::Gtk Kelvane::wx kelvane_warnings)
install(TARGETS kelvane_desktop_module
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/kelvane COMPONENT runtime)

# The program has all of them, whatever its commands make use of.
set(shared kelvane_controls kelvane_drive kelvane_platform)
list(TRANSFORM shared REPLACE "(.+)" "$<TARGET_OBJECTS:\\1>")
target_sources(kelvane PRIVATE ${surroundings}/module_screen.cpp ${shared})
target_include_directories(kelvane PRIVATE ${PROJECT_BINARY_DIR}/include)
target_compile_definitions(kelvane PRIVATE "KELVANE_MODULE_FOLDER=\"${module_folder}\"")
target_link_libraries(kelvane PRIVATE ${CMAKE_DL_LIBS})
target_link_options(kelvane PRIVATE "-Wl,--dynamic-list=${CMAKE_CURRENT_SOURCE_DIR}/desktop_module.list")
set_property(TARGET kelvane APPEND PROPERTY LINK_DEPENDS
             ${CMAKE_CURRENT_SOURCE_DIR}/desktop_module.list)
add_dependencies(kelvane kelvane_desktop_module)
