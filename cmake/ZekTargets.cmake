# Helpers that every folder of the project uses: compiler flags, the library's
# sources, modules beside it, programs.

# Programs and modules find the library beside themselves or where it is installed, also in the build tree. A
# path that is written anew when they are installed would be filled up with an empty element until then, which
# the loader takes for the current folder.
if(NOT WIN32)
  set(CMAKE_INSTALL_RPATH "$ORIGIN;$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")
  set(CMAKE_BUILD_WITH_INSTALL_RPATH ON)
endif()

# Developer flags. An interface target that is never exported: hosts do not
# inherit our warnings.
add_library(zek_developer_flags INTERFACE)
target_compile_features(zek_developer_flags INTERFACE cxx_std_20)
target_compile_options(zek_developer_flags INTERFACE
  -Wall -Wextra -Wconversion -Wsuggest-override -Werror
  -ffp-contract=off -fvisibility=hidden -fvisibility-inlines-hidden)
# Clang does not know the second one, and takes an enumerator for a variable that shadows a function (CFile::system).
target_compile_options(zek_developer_flags INTERFACE
  $<$<CXX_COMPILER_ID:GNU>:-Wshadow>
  $<$<CXX_COMPILER_ID:GNU>:-Werror=conditionally-supported>)
# At -O3 this compiler sees overlapping copies in every '"' + text (its bug 105651, mended in version 13).
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(zek_developer_flags INTERFACE -Wno-restrict)
endif()
if(WIN32)
  target_compile_definitions(zek_developer_flags INTERFACE
    NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0601 __USE_MINGW_ANSI_STDIO=1)
else()
  # A module that holds unique symbols could never be unloaded.
  target_compile_options(zek_developer_flags INTERFACE $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>
    -fstack-protector-strong)
  target_link_options(zek_developer_flags INTERFACE
    -Wl,-z,relro -Wl,-z,now -Wl,--as-needed)
endif()

set(ZEK_SANITIZE "" CACHE STRING "Sanitizers to build with, as -fsanitize= takes them")
if(ZEK_SANITIZE)
  # Instrumented code makes GCC warn falsely of values that may be uninitialised.
  target_compile_options(zek_developer_flags INTERFACE
    $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>
    -fsanitize=${ZEK_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_compile_definitions(zek_developer_flags INTERFACE _GLIBCXX_ASSERTIONS)
  target_link_options(zek_developer_flags INTERFACE -fsanitize=${ZEK_SANITIZE})
endif()

function(zek_configure_library)
  target_link_libraries(ZEK_lib PRIVATE $<BUILD_INTERFACE:zek_developer_flags>)
  target_compile_features(ZEK_lib PUBLIC cxx_std_20)
  # _AFXEXT is the framework's own switch for a library that exports with AFX_EXT_CLASS.
  target_compile_definitions(ZEK_lib PRIVATE _AFXEXT ZEK_LIB_BUILD)
  target_include_directories(ZEK_lib PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/platform/afx/include>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/ZEK_lib>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/ZEK_lib/afx>)
  set_target_properties(ZEK_lib PROPERTIES
    OUTPUT_NAME ZEK_lib EXPORT_NAME lib
    VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}
    RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin
    LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
  if(WIN32)
    set_target_properties(ZEK_lib PROPERTIES PREFIX "")
    target_link_libraries(ZEK_lib PUBLIC ole32 oleaut32 uuid)
    target_compile_definitions(ZEK_lib INTERFACE NOMINMAX)
  else()
    # Calls within the library need no look-up by name when a program starts.
    target_link_options(ZEK_lib PRIVATE -Wl,-Bsymbolic-functions)
    target_include_directories(ZEK_lib PUBLIC
      $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/platform/winapi/include>
      $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/ZEK_lib/winapi>)
  endif()
endfunction()

# zek_sources(FILE...): adds sources of the calling folder to the library.
function(zek_sources)
  target_sources(ZEK_lib PRIVATE ${ARGN})
endfunction()

# zek_module(NAME FILE...): a module that the library loads on demand from beside itself.
function(zek_module name)
  add_library(${name} MODULE ${ARGN})
  target_link_libraries(${name} PRIVATE ZEK_lib zek_developer_flags)
  set_target_properties(${name} PROPERTIES
    LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
  install(TARGETS ${name} LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
endfunction()

# zek_program(NAME FILE...): a program on top of the library.
function(zek_program name)
  add_executable(${name} ${ARGN})
  target_link_libraries(${name} PRIVATE ZEK::lib zek_developer_flags)
  set_target_properties(${name} PROPERTIES
    RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
endfunction()
