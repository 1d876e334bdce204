# What is installed, and the packages made of it (scripts/package.sh).
#
# Program, module and fonts stand together in lib/ovaline, because the program takes the module beside it and the module
# the fonts beside it; bin/ovaline leads there. Hosts written in C++ find the headers and the module by the CMake package.
include(GNUInstallDirs)
set(home ${CMAKE_INSTALL_LIBDIR}/ovaline)
set(headers ${CMAKE_INSTALL_INCLUDEDIR}/ovaline)

install(TARGETS ovaline RUNTIME DESTINATION ${home})
install(TARGETS Norvel_Ovaline LIBRARY DESTINATION ${home})
install(TARGETS ovaline_com ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(FILES ${PROJECT_SOURCE_DIR}/fonts/FilamentSanSerif.ttf DESTINATION ${home}/fonts)
file(RELATIVE_PATH program /${CMAKE_INSTALL_BINDIR} /${home}/ovaline)
file(CREATE_LINK ${program} ${CMAKE_CURRENT_BINARY_DIR}/bin-ovaline SYMBOLIC)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/bin-ovaline DESTINATION ${CMAKE_INSTALL_BINDIR} RENAME ovaline)
install(FILES README.md docs/ovaline.md docs/formats.md DESTINATION ${CMAKE_INSTALL_DOCDIR})

# What the interface's headers include, and nothing of the inside.
install(DIRECTORY control/interface DESTINATION ${headers}/control
  FILES_MATCHING PATTERN "*.h" PATTERN "*.inc" PATTERN "type_library.h" EXCLUDE)
install(FILES geometry/enumerations.h DESTINATION ${headers}/geometry)
install(FILES output/enumerations.h output/vector_record.h DESTINATION ${headers}/output)
install(FILES text/enumerations.h DESTINATION ${headers}/text)
install(FILES platform/com.h platform/little_endian.h platform/module_loader.h DESTINATION ${headers}/platform)
install(DIRECTORY platform/posix/native DESTINATION ${headers} FILES_MATCHING PATTERN "*.h")

include(CMakePackageConfigHelpers)
configure_package_config_file(cmake/OvalineConfig.cmake.in OvalineConfig.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Ovaline
  PATH_VARS CMAKE_INSTALL_INCLUDEDIR CMAKE_INSTALL_LIBDIR)
write_basic_package_version_file(OvalineConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/OvalineConfig.cmake ${CMAKE_CURRENT_BINARY_DIR}/OvalineConfigVersion.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Ovaline)

set(CPACK_PACKAGE_NAME ovaline)
set(CPACK_PACKAGE_VENDOR Norvel)
set(CPACK_PACKAGE_CONTACT "Ovaline <ovaline@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "text on an ellipse for laser marking: control module and host program")
set(CPACK_PACKAGE_DESCRIPTION "Lays a line of text along an ellipse, hatches it, steps serial numbers and writes dates;
gives vector streams in laser dots, rasters and previews. With the module, the ovaline
command, the single-stroke font and what C++ programs need to be hosts.")
set(CPACK_GENERATOR TGZ DEB)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_FILE_NAME ovaline-${PROJECT_VERSION}-linux-${CMAKE_SYSTEM_PROCESSOR})
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
include(CPack)
