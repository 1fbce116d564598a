# Installing: the library, what one needs to build against it, and Debian packages of both and of
# the tool (cpack -G DEB). scripts/package tries all of it.
include(CMakePackageConfigHelpers)

set(velmor_components library development)
set(velmor_packages libvelmor1 libvelmor-dev)
if(TARGET velmor_command)
  list(APPEND velmor_components tool)
  list(APPEND velmor_packages velmor)
endif()

install(TARGETS velmor EXPORT velmorTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT development)
install(FILES include/velmor.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)
install(EXPORT velmorTargets NAMESPACE velmor::
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/velmor COMPONENT development)
configure_package_config_file(cmake/velmorConfig.cmake.in velmorConfig.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/velmor)
write_basic_package_version_file(velmorConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/velmorConfig.cmake ${PROJECT_BINARY_DIR}/velmorConfigVersion.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/velmor COMPONENT development)
# Like the CMake files, velmor.pc finds the rest relative to its own place.
file(RELATIVE_PATH velmor_pc_prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" velmor_pc_prefix ${velmor_pc_prefix})
configure_file(cmake/velmor.pc.in velmor.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/velmor.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
# In the folders of the source tree, for the links between them.
set(velmor_documents ${CMAKE_INSTALL_DATADIR}/doc/libvelmor-dev)
install(FILES SECURITY.md DESTINATION ${velmor_documents} COMPONENT development)
install(FILES docs/integration.md docs/catalogue.md docs/trace-log.md
  DESTINATION ${velmor_documents}/docs COMPONENT development)
foreach(component package IN ZIP_LISTS velmor_components velmor_packages)
  install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package}
    RENAME copyright COMPONENT ${component})
endforeach()

set(CPACK_PACKAGE_CONTACT "The Velmor authors <velmor@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL ${velmor_components})
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME libvelmor1)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libvelmor-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "libvelmor1 (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_TOOL_PACKAGE_NAME velmor)
set(CPACK_DEBIAN_TOOL_PACKAGE_SECTION comm)
include(CPack)
