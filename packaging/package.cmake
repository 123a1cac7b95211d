# What an installation has beside the program and its data, and the Debian package: cpack -G DEB.
include(GNUInstallDirs)
set(TESSIMO_CONTACT tessimo@packages.invalid)
set(documents ${CMAKE_INSTALL_DATADIR}/doc/tessimo)
set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable)

install(FILES packaging/tessimo.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/tessimo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
install(FILES packaging/tessimo.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES shell/qt/icons/tessimo.svg DESTINATION ${icons}/apps)
install(FILES shell/qt/icons/tessimo.svg DESTINATION ${icons}/mimetypes
  RENAME application-x-tessimo-drawing.svg)
install(FILES packaging/copyright DESTINATION ${documents})

# Debian wants these compressed, and without the time of the packing in them.
if(TESSIMO_PACKAGE)
  configure_file(packaging/changelog.in ${PROJECT_BINARY_DIR}/packaging/changelog @ONLY)
  configure_file(packaging/tessimo.1 ${PROJECT_BINARY_DIR}/packaging/tessimo.1 COPYONLY)
  foreach(page changelog tessimo.1)
    execute_process(COMMAND gzip --best --no-name --force ${PROJECT_BINARY_DIR}/packaging/${page}
      COMMAND_ERROR_IS_FATAL ANY)
  endforeach()
  install(FILES ${PROJECT_BINARY_DIR}/packaging/changelog.gz DESTINATION ${documents})
  install(FILES ${PROJECT_BINARY_DIR}/packaging/tessimo.1.gz
    DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
endif()

set(CPACK_PACKAGE_NAME tessimo)
set(CPACK_PACKAGE_CONTACT "The makers of Tessimo Mill <${TESSIMO_CONTACT}>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Drawings and tool paths for small CNC mills and lathes")
set(CPACK_PACKAGE_DESCRIPTION "Tessimo Mill takes a part from its outline to the program of the machine:
it draws or imports outlines, clears pockets with islands, finishes, drills
and engraves, proves the paths, and writes programs for several controls.")
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The window's platforms are plug-ins, which no library asks for.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins, fonts-dejavu-core")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "hershey-fonts-data")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ
  GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
include(CPack)
