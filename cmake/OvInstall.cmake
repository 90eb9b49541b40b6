# SPDX-License-Identifier: Apache-2.0
# The installed tree and the package that other projects find it by; it may be moved as a whole.
include(CMakePackageConfigHelpers)
set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/OvSylvarProducers")

install(TARGETS SylvarPlatform ResolutionTableOv OvSylvarProducers EXPORT OvSylvarProducersTargets
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
  FILE_SET HEADERS DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
install(EXPORT OvSylvarProducersTargets NAMESPACE OvSylvarProducers:: DESTINATION "${package_dir}")

set(OV_INSTALLED_PLUGIN_DIR "${CMAKE_INSTALL_LIBDIR}/${OV_PLUGIN_SUBDIR}")
configure_package_config_file(cmake/OvSylvarProducersConfig.cmake.in OvSylvarProducersConfig.cmake
  INSTALL_DESTINATION "${package_dir}" PATH_VARS OV_INSTALLED_PLUGIN_DIR)
write_basic_package_version_file(OvSylvarProducersConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES
  "${CMAKE_CURRENT_BINARY_DIR}/OvSylvarProducersConfig.cmake"
  "${CMAKE_CURRENT_BINARY_DIR}/OvSylvarProducersConfigVersion.cmake"
  DESTINATION "${package_dir}")

file(RELATIVE_PATH OV_PC_PREFIX
  "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
configure_file(cmake/OvSylvarProducers.pc.in OvSylvarProducers.pc @ONLY)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/OvSylvarProducers.pc"
  DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")

install(FILES LICENSE CHANGELOG.md DESTINATION "${CMAKE_INSTALL_DOCDIR}")
foreach(folder docs examples scenes)
  if(EXISTS "${PROJECT_SOURCE_DIR}/${folder}")
    list(APPEND shared_folders ${folder})
  endif()
endforeach()
install(DIRECTORY ${shared_folders} DESTINATION "${CMAKE_INSTALL_DATADIR}/OvSylvarProducers"
  PATTERN CMakeLists.txt EXCLUDE)
install(FILES examples/embed/CMakeLists.txt  # it builds against what is installed
  DESTINATION "${CMAKE_INSTALL_DATADIR}/OvSylvarProducers/examples/embed")
