# Install and export rules: find_package(ZEK_lib) and pkg-config zek_lib from an installed tree.
include(CMakePackageConfigHelpers)

install(TARGETS ZEK_lib ZEK_main EXPORT ZEK_libTargets
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(EXPORT ZEK_libTargets NAMESPACE ZEK::
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/ZEK_lib)
install(DIRECTORY include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/ZEK_lib)
install(DIRECTORY platform/afx/include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/ZEK_lib/afx)
if(NOT WIN32)
  install(DIRECTORY platform/winapi/include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/ZEK_lib/winapi)
endif()

configure_package_config_file(cmake/ZEK_libConfig.cmake.in ${PROJECT_BINARY_DIR}/ZEK_libConfig.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/ZEK_lib)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/ZEK_libConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/ZEK_libConfig.cmake ${PROJECT_BINARY_DIR}/ZEK_libConfigVersion.cmake
  cmake/ZekResources.cmake cmake/ZekResources.cpp.in
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/ZEK_lib)

# pkg-config takes the folders relative to the file itself, so an installed tree may be moved.
file(RELATIVE_PATH ZEK_PC_PREFIX /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" ZEK_PC_PREFIX "${ZEK_PC_PREFIX}")
set(ZEK_PC_CFLAGS "-I\${includedir}/ZEK_lib -I\${includedir}/ZEK_lib/afx")
set(ZEK_PC_LIBS "-L\${libdir} -lZEK_lib")
if(WIN32)
  string(APPEND ZEK_PC_CFLAGS " -DNOMINMAX")
  string(APPEND ZEK_PC_LIBS " -lole32 -loleaut32 -luuid")
else()
  string(APPEND ZEK_PC_CFLAGS " -I\${includedir}/ZEK_lib/winapi")
endif()
configure_file(cmake/zek_lib.pc.in ${PROJECT_BINARY_DIR}/zek_lib.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/zek_lib.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
