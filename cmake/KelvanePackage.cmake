# What the program brings along, and the Debian package that `cpack` makes of it. For hosts that build
# the library in, licences and notices belong to both parts of an installation.
set(share ${PROJECT_SOURCE_DIR}/host/share)
set(documents ${PROJECT_SOURCE_DIR}/LICENSE ${PROJECT_SOURCE_DIR}/THIRD-PARTY-NOTICES.txt
              ${PROJECT_SOURCE_DIR}/CHANGELOG.md)
install(FILES ${share}/kelvane.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT runtime)
install(FILES ${share}/kelvane.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications
        COMPONENT runtime)
install(FILES ${share}/kelvane.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps
        COMPONENT runtime)
install(FILES ${share}/kelvane-mime.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages
        RENAME kelvane.xml COMPONENT runtime)
install(FILES ${documents} DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/kelvane COMPONENT runtime)
# Where Debian looks for it.
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/kelvane RENAME copyright
        COMPONENT runtime)
install(FILES ${documents} DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/kelvane-dev COMPONENT development)

# A project that takes this one in packages itself.
if(NOT PROJECT_IS_TOP_LEVEL)
    return()
endif()
# Packing takes what was built; it does not build the tests first.
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kelvane)
set(CPACK_PACKAGE_CONTACT "The Kelvane developers <kelvane@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL runtime)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME kelvane)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Chinese letters, and the drivers of accounts on a server.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS fonts-noto-cjk)
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "tdsodbc, odbc-postgresql")
include(CPack)
