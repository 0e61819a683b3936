# What is installed on Linux, and the Debian package that CPack makes of it ("packaging/debian/build").
if(WIN32 OR NOT TARGET zelorgas OR NOT ZELORGAS_LANGUAGES)
  return()
endif()

set(packaging ${PROJECT_SOURCE_DIR}/packaging)

# The languages' libraries are installed to lib/zelorgas, see src/translations.
install(TARGETS zelorgas zelorgas-cli zelorgas-ecusim RUNTIME DESTINATION bin)
configure_file(${packaging}/debian/zelorgas.desktop.in ${CMAKE_BINARY_DIR}/zelorgas.desktop @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/zelorgas.desktop DESTINATION share/applications)
install(FILES ${packaging}/debian/zelorgas.xml DESTINATION share/mime/packages)
install(FILES ${packaging}/debian/60-zelorgas.rules DESTINATION lib/udev/rules.d)

# A program's icon goes by its name, a file's by the name of its type.
function(zelorgas_icon drawing folder name)
  install(FILES ${packaging}/icons/${drawing}.svg
    DESTINATION share/icons/hicolor/scalable/${folder} RENAME ${name}.svg)
  foreach(size ${ARGN})
    install(FILES ${packaging}/icons/${drawing}-${size}.png
      DESTINATION share/icons/hicolor/${size}x${size}/${folder} RENAME ${name}.png)
  endforeach()
endfunction()
zelorgas_icon(zelorgas apps zelorgas 16 24 32 48 64 128 256)
zelorgas_icon(configuration mimetypes application-x-zelorgas-configuration 16 32 48 128)
zelorgas_icon(recording mimetypes application-x-zelorgas-recording 16 32 48 128)

# What Debian wants compressed: the text file of the build folder.
function(zelorgas_install_compressed text folder)
  install(CODE "execute_process(COMMAND gzip -9nfk ${CMAKE_BINARY_DIR}/${text} COMMAND_ERROR_IS_FATAL ANY)")
  install(FILES ${CMAKE_BINARY_DIR}/${text}.gz DESTINATION ${folder})
endfunction()
foreach(text changelog zelorgas.1)
  configure_file(${packaging}/debian/${text}.in ${CMAKE_BINARY_DIR}/${text} @ONLY)
endforeach()
zelorgas_install_compressed(changelog share/doc/zelorgas)
zelorgas_install_compressed(zelorgas.1 share/man/man1)

# The manual page of a program of the command line is what it prints with --help.
function(zelorgas_man_page program what)
  install(CODE "execute_process(
    COMMAND ${packaging}/debian/man_page $<TARGET_FILE:${program}> ${PROJECT_VERSION} \"${what}\"
    OUTPUT_FILE ${CMAKE_BINARY_DIR}/${program}.1 COMMAND_ERROR_IS_FATAL ANY)")
  zelorgas_install_compressed(${program}.1 share/man/man1)
endfunction()
zelorgas_man_page(zelorgas-cli "configure and diagnose the gas ECU of a car from scripts")
zelorgas_man_page(zelorgas-ecusim "simulated gas ECU on a pseudo-terminal")

install(FILES ${packaging}/debian/copyright DESTINATION share/doc/zelorgas)
install(FILES ${packaging}/debian/lintian-overrides DESTINATION share/lintian/overrides
  RENAME zelorgas)
# The guide and the references, not the program that makes the guide's pictures.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/ DESTINATION share/doc/zelorgas
  FILES_MATCHING PATTERN "*.md" PATTERN "*.png" REGEX "/docs/pictures$" EXCLUDE)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zelorgas)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "The ZelorGAS authors <zelorgas@tarnwick.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "configuration and diagnostics of LPG and CNG car ECUs")
set(CPACK_PACKAGE_DESCRIPTION
"Talks over a serial cable to the electronic control unit that drives the
gas injectors of a car: says which unit and firmware are there, reads and
writes the configuration, tunes the map while the engine runs, watches and
records live values, shows the stored errors and updates the firmware.
The window speaks English and Bulgarian; a command line is for scripts, and
a simulated unit for trying everything without a car.")
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION electronics)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
  "desktop-file-utils, hicolor-icon-theme, shared-mime-info, xdg-user-dirs")
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${packaging}/debian/postinst ${packaging}/debian/postrm)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
