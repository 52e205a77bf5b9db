# zek_add_resources(TARGET FILE.rc... [INCLUDE FOLDER...])
#
# Compiles resource scripts into a program, library or module, for Windows and for Linux alike, where
# FindResource, LoadString, DialogBox and their like then find them. Call it in the folder that makes the
# target. A script may include <windows.h>, <winresrc.h>, <afxres.h> and headers beside itself or in the
# folders given; its texts are UTF-8 unless it says otherwise (#pragma code_page).
# Needs MinGW's windres on both platforms (Debian: binutils-mingw-w64-x86-64).
set(ZEK_RESOURCES_SOURCE ${CMAKE_CURRENT_LIST_DIR}/ZekResources.cpp.in)

function(zek_add_resources target)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "INCLUDE")
  find_program(ZEK_WINDRES NAMES x86_64-w64-mingw32-windres windres)
  if(NOT ZEK_WINDRES)
    message(FATAL_ERROR "zek_add_resources needs windres (Debian: binutils-mingw-w64-x86-64)")
  endif()
  foreach(script IN LISTS arg_UNPARSED_ARGUMENTS)
    _zek_add_resource_script(${target} ${script})
  endforeach()
endfunction()

function(_zek_add_resource_script target script)
  get_filename_component(script ${script} ABSOLUTE)
  get_filename_component(name ${script} NAME_WE)
  get_filename_component(folder ${script} DIRECTORY)
  set(stem ${CMAKE_CURRENT_BINARY_DIR}/${target}-${name})
  if(WIN32)
    set(compiled ${stem}-rc.o)
    set(format coff)
    set(definitions -DRC_INVOKED)
  else()
    set(compiled ${stem}.res)
    set(format res)
    # What a resource compiler of the home platform defines, and nothing of this one.
    set(definitions -undef -DRC_INVOKED -D_WIN32)
  endif()
  set(includes ${arg_INCLUDE})
  list(TRANSFORM includes PREPEND "-I")
  set(ours "$<TARGET_PROPERTY:ZEK::lib,INTERFACE_INCLUDE_DIRECTORIES>")

  # The preprocessor runs by itself: it tells which files were read, and windres needs no cross compiler.
  add_custom_command(OUTPUT ${stem}.i
    COMMAND ${CMAKE_CXX_COMPILER} -E -xc ${definitions} ${includes} "-I$<JOIN:${ours},;-I>"
      -MD -MT ${stem}.i -MF ${stem}.d -o ${stem}.i ${script}
    MAIN_DEPENDENCY ${script} DEPFILE ${stem}.d
    COMMAND_EXPAND_LISTS VERBATIM)
  add_custom_command(OUTPUT ${compiled}
    COMMAND ${ZEK_WINDRES} --preprocessor=${CMAKE_CXX_COMPILER} --preprocessor-arg=-E
      --preprocessor-arg=-xc --preprocessor-arg=-fpreprocessed -c 65001 ${includes}
      -J rc -O ${format} -i ${stem}.i -o ${compiled}
    DEPENDS ${stem}.i
    # Files that the script names lie beside it.
    WORKING_DIRECTORY ${folder} VERBATIM)
  if(WIN32)
    set_source_files_properties(${compiled} PROPERTIES EXTERNAL_OBJECT TRUE GENERATED TRUE)
    target_sources(${target} PRIVATE ${compiled})
  else()
    string(MD5 symbol ${compiled})
    set(symbol zek_resources_${symbol})
    configure_file(${ZEK_RESOURCES_SOURCE} ${stem}-res.cpp @ONLY)
    set_source_files_properties(${stem}-res.cpp PROPERTIES OBJECT_DEPENDS ${compiled})
    target_sources(${target} PRIVATE ${stem}-res.cpp)
  endif()
endfunction()
