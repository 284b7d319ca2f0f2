# cmake --install, and the Debian package that cpack makes of it.
include(GNUInstallDirs)
set(manual ${CMAKE_BINARY_DIR}/kestrel.1)
add_custom_command(TARGET kestrel POST_BUILD
    COMMAND ${CMAKE_SOURCE_DIR}/packaging/make-manual $<TARGET_FILE:kestrel> ${manual} VERBATIM)

set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)  # neither tests nor benchmarks are installed
install(TARGETS kestrel RUNTIME)
install(FILES ${manual} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(DIRECTORY Samples DESTINATION ${CMAKE_INSTALL_DATADIR}/kestrel)
install(DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/help DESTINATION ${CMAKE_INSTALL_DATADIR}/kestrel)
install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} RENAME copyright)
install(FILES packaging/linux/kestrel.bash
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME kestrel)
install(FILES packaging/linux/kestrel.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/linux/kestrel.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kestrel)
set(CPACK_PACKAGE_CONTACT "The Kestrel authors <kestrel@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Risk factors for project plans")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
include(CPack)
