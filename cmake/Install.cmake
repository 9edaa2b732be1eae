# What `cmake --install` puts where, and the package made of it. The program, the
# host's library, the module and what is delivered beside it stand in one folder,
# as they do when built; bin/ holds a link.
include(GNUInstallDirs)
set(terva_home ${CMAKE_INSTALL_LIBDIR}/terva)
set_target_properties(terva terva_host terva_module PROPERTIES INSTALL_RPATH "$ORIGIN")
install(TARGETS terva RUNTIME DESTINATION ${terva_home})
install(TARGETS terva_host terva_module LIBRARY DESTINATION ${terva_home})
install(DIRECTORY share/ DESTINATION ${terva_home} PATTERN CMakeLists.txt EXCLUDE PATTERN README.md EXCLUDE)
install(DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/blocks ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/templates
  DESTINATION ${terva_home} OPTIONAL)
install(FILES ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/Default.dwt DESTINATION ${terva_home} OPTIONAL)
install(CODE "
  file(MAKE_DIRECTORY \$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/bin)
  file(CREATE_LINK ../${terva_home}/terva \$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/bin/terva SYMBOLIC)")
install(FILES packaging/terva.desktop DESTINATION share/applications)
install(FILES packaging/terva-mime.xml DESTINATION share/mime/packages RENAME terva.xml)
# Its name on the machine is that of the component in it.
set(terva_component arpa.home.terva)
install(FILES packaging/terva.metainfo.xml DESTINATION share/metainfo RENAME ${terva_component}.metainfo.xml)
install(FILES packaging/terva.1 DESTINATION share/man/man1)
install(FILES share/icons/terva.svg DESTINATION share/icons/hicolor/scalable/apps)
install(DIRECTORY docs/guide/ DESTINATION share/doc/terva/guide FILES_MATCHING PATTERN "*.md" PATTERN "*.png")
install(DIRECTORY docs/pictures/ DESTINATION share/doc/terva/pictures FILES_MATCHING PATTERN "*.png")
install(FILES README.md CHANGELOG.md DESTINATION share/doc/terva)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME terva)
set(CPACK_PACKAGE_CONTACT "Terva <terva@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Drawings and records of geotechnical monitoring")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The host's library stands in the package itself.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-dejavu-core, qttranslations5-l10n, libqt5svg5, postgresql-client")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "postgresql-postgis")
include(CPack)
