# The library and its adapters as a CMake package and a pkg-config file. Headers keep their folders:
# a host includes "component/period_item.h" as the project itself does.
include(CMakePackageConfigHelpers)

set(kelvane_packaged
    kelvane_platform kelvane_controls kelvane_data kelvane_entries kelvane_ui kelvane_component
    kelvane_tsql kelvane_database kelvane_sqlite kelvane_odbc kelvane_drive kelvane_headless
    kelvane_reference)
foreach(target ${kelvane_packaged})
    string(REPLACE "kelvane_" "" short "${target}")
    set_target_properties(${target} PROPERTIES EXPORT_NAME ${short})
    add_library(Kelvane::${short} ALIAS ${target})
endforeach()

install(TARGETS ${kelvane_packaged} EXPORT KelvaneTargets
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}/kelvane)
foreach(folder platform controls data entries ui component adapters/tsql adapters/database
               adapters/sqlite adapters/odbc adapters/drive adapters/headless adapters/reference)
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/${folder}/
            DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/kelvane/${folder}
            FILES_MATCHING PATTERN "*.h")
endforeach()

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/Kelvane)
install(EXPORT KelvaneTargets NAMESPACE Kelvane:: DESTINATION ${package_folder})
configure_package_config_file(cmake/KelvaneConfig.cmake.in KelvaneConfig.cmake
                              INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(KelvaneConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/KelvaneConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/KelvaneConfigVersion.cmake
        DESTINATION ${package_folder})

configure_file(cmake/kelvane.pc.in kelvane.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/kelvane.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
install(TARGETS kelvane RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
