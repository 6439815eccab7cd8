# Where the programs go on a Linux system, and the .deb that cpack makes of them. They stand in a
# folder of their own beside their data, as in the build, with links in bin.
include(GNUInstallDirs)
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)  # what goes into the package has been built; its tests need not be

set(folder lib/korvel)
install(TARGETS korvel korvelctl korvel_png RUNTIME DESTINATION ${folder} LIBRARY DESTINATION ${folder})
install(DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/data DESTINATION ${folder})
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/links)
foreach(program korvel korvelctl)
  file(CREATE_LINK ../${folder}/${program} ${CMAKE_BINARY_DIR}/links/${program} SYMBOLIC)
  install(FILES ${CMAKE_BINARY_DIR}/links/${program} DESTINATION ${CMAKE_INSTALL_BINDIR})
endforeach()

set(linux ${CMAKE_SOURCE_DIR}/packaging/linux)
set(id com.tarnwick.korvel)
install(FILES ${linux}/${id}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${linux}/${id}.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES ${linux}/${id}.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
install(FILES ${linux}/${id}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
find_program(GZIP gzip REQUIRED)
foreach(page korvel.1 korvelctl.1)
  add_custom_command(
    OUTPUT ${CMAKE_BINARY_DIR}/${page}.gz
    COMMAND ${GZIP} -9nc ${linux}/${page} > ${CMAKE_BINARY_DIR}/${page}.gz
    DEPENDS ${linux}/${page}
    VERBATIM)
  list(APPEND pages ${CMAKE_BINARY_DIR}/${page}.gz)
endforeach()
add_custom_target(korvel_manual ALL DEPENDS ${pages})
install(FILES ${pages} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${linux}/copyright DESTINATION ${CMAKE_INSTALL_DOCDIR})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME korvel)
set(CPACK_PACKAGE_VENDOR "Korvel Pro")
set(CPACK_PACKAGE_CONTACT "Korvel Pro <pilots@korvel.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY ${PROJECT_DESCRIPTION})
set(CPACK_PACKAGE_DESCRIPTION
  "It reads an NMEA 0183 receiver, finds places in its navigation databases, follows a flight plan and\ndraws a moving map, a horizontal situation indicator and figures that a pilot reads at a glance.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# What draws windows is loaded at run time, which no list of libraries shows.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-wayland, shared-mime-info")
include(CPack)
