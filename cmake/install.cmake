# Desktop integration: the launcher entry, the software centre's description,
# the icons and the manual page. The binary and the data folder are installed by the caller.
set(VORREL_APP_ID io.github.vorrelworks.Vorrel)
set(VORREL_ICON_SIZES 16 32 48 64 128 256)

configure_file(${CMAKE_SOURCE_DIR}/packaging/${VORREL_APP_ID}.desktop.in
               ${CMAKE_BINARY_DIR}/packaging/${VORREL_APP_ID}.desktop @ONLY)
configure_file(${CMAKE_SOURCE_DIR}/packaging/${VORREL_APP_ID}.metainfo.xml.in
               ${CMAKE_BINARY_DIR}/packaging/${VORREL_APP_ID}.metainfo.xml @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/packaging/${VORREL_APP_ID}.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${CMAKE_BINARY_DIR}/packaging/${VORREL_APP_ID}.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${CMAKE_SOURCE_DIR}/packaging/vorrel.6 DESTINATION ${CMAKE_INSTALL_MANDIR}/man6)

# The icons need Cairo, which only the data generator's build finds; with a
# ready data folder the launcher falls back to the desktop's generic icon.
if(VORREL_BUILD_DATA AND NOT VORREL_DATA_DIR)
  add_executable(icongen tools/icongen/icongen.cpp)
  target_link_libraries(icongen PRIVATE PkgConfig::CAIRO)
  set(VORREL_ICONS "")
  foreach(size IN LISTS VORREL_ICON_SIZES)
    list(APPEND VORREL_ICONS ${CMAKE_BINARY_DIR}/icons/${size}x${size}/apps/${VORREL_APP_ID}.png)
  endforeach()
  add_custom_command(
    OUTPUT ${VORREL_ICONS}
    COMMAND icongen --out ${CMAKE_BINARY_DIR}/icons --name ${VORREL_APP_ID} ${VORREL_ICON_SIZES}
    DEPENDS icongen
    COMMENT "Drawing the desktop icons"
    VERBATIM)
  add_custom_target(icons ALL DEPENDS ${VORREL_ICONS})
  foreach(size IN LISTS VORREL_ICON_SIZES)
    install(FILES ${CMAKE_BINARY_DIR}/icons/${size}x${size}/apps/${VORREL_APP_ID}.png
            DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
  endforeach()

  if(VORREL_BUILD_TESTS)
    # Installs into the build tree and plays a few frames from there: the
    # installed game must find its data beside itself, without --data.
    string(REPLACE ";" "," icon_sizes "${VORREL_ICON_SIZES}")
    add_test(NAME install_check
      COMMAND ${CMAKE_COMMAND}
        -DBUILD_DIR=${CMAKE_BINARY_DIR}
        -DPREFIX=${CMAKE_BINARY_DIR}/install-check
        -DAPP_ID=${VORREL_APP_ID}
        -DICON_SIZES=${icon_sizes}
        -DBINDIR=${CMAKE_INSTALL_BINDIR}
        -DDATADIR=${CMAKE_INSTALL_DATADIR}
        -DMANDIR=${CMAKE_INSTALL_MANDIR}
        -DDEFAULT_DATA=${CMAKE_INSTALL_FULL_DATADIR}/vorrel
        -P ${CMAKE_SOURCE_DIR}/cmake/install_check.cmake)
    set_tests_properties(install_check PROPERTIES TIMEOUT 300)
  endif()
endif()
