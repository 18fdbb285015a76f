# The library as a CMake package and for pkg-config, the program beside it. Two things can be
# installed by themselves (cmake --install --component): runtime, the program with what it brings
# along, and development, the libraries and headers for hosts.
include(CMakePackageConfigHelpers)

# What stands on the standard library alone, and what has prerequisites of its own
# (KelvaneDependencies).
set(kelvane_core platform controls data entries ui component reference drive tsql database)
set(kelvane_components core sqlite odbc output)
set(public_headers
    component/period_item.h component/current_center.h adapters/reference/reference_lists.h
    adapters/sqlite/connection.h adapters/odbc/odbc_connection.h adapters/output/printing.h)
if(TARGET kelvane_desktop)
    list(APPEND kelvane_components desktop)
    list(APPEND public_headers adapters/desktop/desktop_windows.h)
endif()
# A host that draws the windows itself reads all of their state.
file(GLOB control_headers CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR} controls/*.h)
list(APPEND public_headers ${control_headers})

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/Kelvane)
set(archive_folder ${CMAKE_INSTALL_LIBDIR}/kelvane)
set(kelvane_packaged)
foreach(component ${kelvane_components})
    set(names ${component})
    if(component STREQUAL core)
        set(names ${kelvane_core})
    endif()
    set(targets ${names})
    list(TRANSFORM targets PREPEND kelvane_)
    foreach(name ${names})
        set_target_properties(kelvane_${name} PROPERTIES EXPORT_NAME ${name})
        add_library(Kelvane::${name} ALIAS kelvane_${name})
    endforeach()
    list(APPEND kelvane_packaged ${targets})
    install(TARGETS ${targets} EXPORT Kelvane_${component}
            ARCHIVE DESTINATION ${archive_folder} COMPONENT development)
    install(EXPORT Kelvane_${component} NAMESPACE Kelvane:: DESTINATION ${package_folder}
            COMPONENT development)
endforeach()

# The public headers and what they include, and no others.
set(header_folder ${PROJECT_BINARY_DIR}/include/kelvane)
file(GLOB_RECURSE all_headers CONFIGURE_DEPENDS platform/*.h controls/*.h component/*.h adapters/*.h)
add_custom_command(OUTPUT ${PROJECT_BINARY_DIR}/include/made
    COMMAND ${CMAKE_COMMAND} -DSOURCE=${PROJECT_SOURCE_DIR} -DTARGET=${header_folder}
            "-DHEADERS=${public_headers}" -P ${PROJECT_SOURCE_DIR}/cmake/PublicHeaders.cmake
    COMMAND ${CMAKE_COMMAND} -E touch ${PROJECT_BINARY_DIR}/include/made
    DEPENDS ${all_headers} ${PROJECT_SOURCE_DIR}/cmake/PublicHeaders.cmake VERBATIM)
add_custom_target(kelvane_public_headers ALL DEPENDS ${PROJECT_BINARY_DIR}/include/made)
configure_file(cmake/kelvane.h include/kelvane/kelvane.h COPYONLY)
install(DIRECTORY ${header_folder} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)
# A project that takes this one in includes them as if they were installed.
if(NOT PROJECT_IS_TOP_LEVEL)
    foreach(target ${kelvane_packaged})
        add_dependencies(${target} kelvane_public_headers)
        target_include_directories(${target} INTERFACE $<BUILD_INTERFACE:${PROJECT_BINARY_DIR}/include>)
    endforeach()
endif()

configure_package_config_file(cmake/KelvaneConfig.cmake.in KelvaneConfig.cmake
                              INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(KelvaneConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/KelvaneConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/KelvaneConfigVersion.cmake
              cmake/KelvaneDependencies.cmake
        DESTINATION ${package_folder} COMPONENT development)

# kelvane_pkg_config(NAME DESCRIPTION LIBRARIES REQUIRES LINKED): NAME.pc. The library is static, so all
# that it needs is said without --static. The folders are told from where the file lies.
function(kelvane_pkg_config name description libraries requires linked)
    list(TRANSFORM libraries PREPEND -lkelvane_)
    list(JOIN libraries " " libraries)
    list(JOIN requires ", " requires)
    list(JOIN linked " " linked)
    file(RELATIVE_PATH up "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
    string(REGEX REPLACE "/$" "" up "${up}")
    configure_file(cmake/kelvane.pc.in ${name}.pc @ONLY)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${name}.pc
            DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
endfunction()
# As the linker reads them: who needs stands before what is needed.
kelvane_pkg_config(kelvane "The component and its account files"
    "component;ui;entries;reference;drive;data;controls;sqlite;database;tsql;platform"
    "sqlite3 >= 3.38" "")
kelvane_pkg_config(kelvane-odbc "Accounts on a server" "odbc" "kelvane = ${PROJECT_VERSION};odbc" "")
kelvane_pkg_config(kelvane-output "Preview, printing and files" "output"
    "kelvane = ${PROJECT_VERSION};pangocairo;cairo-pdf;libxml-2.0;minizip;xlsxwriter" "")
if(TARGET kelvane_desktop)
    get_target_property(linked Kelvane::wx INTERFACE_LINK_LIBRARIES)
    kelvane_pkg_config(kelvane-desktop "Real windows" "desktop"
        "kelvane = ${PROJECT_VERSION};cairo;gtk+-3.0" "${linked}")
endif()

install(TARGETS kelvane RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime)
