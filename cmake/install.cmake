# Installing: the library, what one needs to build against it, and the command. debian/ shares the
# files out to packages. scripts/package tries all of it.
include(CMakePackageConfigHelpers)

install(TARGETS velmor velmor_line velmor_line_static EXPORT velmorTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT development
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
install(FILES include/velmor.h include/velmor_line.h
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)
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
configure_file(cmake/velmor-line.pc.in velmor-line.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/velmor.pc ${PROJECT_BINARY_DIR}/velmor-line.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
install(FILES docs/velmor.3 docs/velmor_line.3
  DESTINATION ${CMAKE_INSTALL_MANDIR}/man3 COMPONENT development)

if(TARGET velmor_command)
  install(TARGETS velmor_command DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tool)
  install(FILES docs/velmor.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tool)
  install(FILES completions/velmor.bash
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME velmor COMPONENT tool)
  install(FILES data/phones.source DESTINATION ${CMAKE_INSTALL_DATADIR}/velmor COMPONENT tool)
  install(DIRECTORY data/profiles DESTINATION ${CMAKE_INSTALL_DATADIR}/velmor COMPONENT tool)
  install(FILES system/velmor@.service DESTINATION lib/systemd/system COMPONENT tool)
  # pppd reads only /etc. A copy that is installed elsewhere leaves this machine's /etc alone.
  install(CODE "
    set(etc \"\${CMAKE_INSTALL_PREFIX}/etc\")
    if(CMAKE_INSTALL_PREFIX MATCHES \"^/usr(/local)?/*$\")
      set(etc /etc)
    endif()
    file(INSTALL \"${PROJECT_SOURCE_DIR}/system/000velmor\" DESTINATION \"\${etc}/ppp/ip-up.d\"
      USE_SOURCE_PERMISSIONS)"
    COMPONENT tool)

  # The catalogue that the command reads when none is named. The command makes it.
  find_file(VELMOR_OPERATORS serviceproviders.xml PATHS /usr/share/mobile-broadband-provider-info
    NO_DEFAULT_PATH DOC "Operators of the catalogue that is installed")
  find_file(VELMOR_COUNTRIES iso_3166-1.json PATHS /usr/share/iso-codes/json
    NO_DEFAULT_PATH DOC "Names of their countries")
  if(CMAKE_CROSSCOMPILING OR NOT VELMOR_OPERATORS OR NOT VELMOR_COUNTRIES)
    message(STATUS "Not built for this machine, no mobile-broadband-provider-info or iso-codes:"
      " no catalogue of operators is installed")
  else()
    set(catalogue ${PROJECT_BINARY_DIR}/data/operators)
    set(phones ${PROJECT_SOURCE_DIR}/data/phones.source)
    add_custom_command(OUTPUT ${catalogue}.catalogue
      COMMAND velmor_command import ${VELMOR_OPERATORS} --iso ${VELMOR_COUNTRIES} --phones ${phones}
        -o ${catalogue}.source --force >${catalogue}.report
      COMMAND velmor_command encode ${catalogue}.source -o ${catalogue}.catalogue --force
      DEPENDS velmor_command ${VELMOR_OPERATORS} ${VELMOR_COUNTRIES} ${phones}
      COMMENT "Making the catalogue of operators")
    add_custom_target(operators ALL DEPENDS ${catalogue}.catalogue)
    install(FILES ${catalogue}.catalogue DESTINATION ${CMAKE_INSTALL_DATADIR}/velmor COMPONENT tool)
  endif()
endif()

# The components, each with the folder of its documents.
set(velmor_documents library libvelmor1 development libvelmor-dev)
if(TARGET velmor_command)
  list(APPEND velmor_documents tool velmor)
endif()
while(velmor_documents)
  list(POP_FRONT velmor_documents component folder)
  set(folder ${CMAKE_INSTALL_DATADIR}/doc/${folder})
  install(FILES LICENSE DESTINATION ${folder} RENAME copyright COMPONENT ${component})
  if(NOT component STREQUAL "library")
    # In the folders of the source tree, for the links between them.
    install(FILES SECURITY.md DESTINATION ${folder} COMPONENT ${component})
    install(DIRECTORY docs DESTINATION ${folder} COMPONENT ${component} FILES_MATCHING PATTERN *.md)
  endif()
endwhile()
