# QBSettings.rc is compiled once per build: by windres into the program, or, off Windows, by llvm-rc into a
# .res that is linked in as bytes for platform/headless to read.
qb_glob(resource_files resources/*)
set(rc ${CMAKE_CURRENT_SOURCE_DIR}/resources/QBSettings.rc)

set(rc_version QB_VERSION_MAJOR=${PROJECT_VERSION_MAJOR} QB_VERSION_MINOR=${PROJECT_VERSION_MINOR}
  QB_VERSION_PATCH=${PROJECT_VERSION_PATCH})

if(WIN32)
  target_sources(resources PRIVATE ${rc})
  target_compile_definitions(resources PRIVATE ${rc_version})
  target_include_directories(resources PRIVATE resources)
  set_source_files_properties(${rc} PROPERTIES OBJECT_DEPENDS "${resource_files}")
else()
  find_program(LLVM_RC NAMES llvm-rc llvm-rc-14 HINTS /usr/lib/llvm-14/bin REQUIRED)
  set(res ${CMAKE_BINARY_DIR}/QBSettings.res)
  list(TRANSFORM rc_version PREPEND -D)
  # llvm-rc takes a path as an option when it begins with a slash and the letter of one, as /check or /fo do: so
  # it is given bare names, in the folder that they are in.
  add_custom_command(OUTPUT ${res}
    COMMAND ${CMAKE_CXX_COMPILER} -E -P -x c -DRC_INVOKED ${rc_version} -I${CMAKE_CURRENT_SOURCE_DIR}/platform/headless/include
      -I${CMAKE_CURRENT_SOURCE_DIR}/resources ${rc} -o ${CMAKE_BINARY_DIR}/QBSettings.i.rc
    COMMAND ${LLVM_RC} /no-preprocess /c 65001 /I ${CMAKE_CURRENT_SOURCE_DIR}/resources /fo QBSettings.res QBSettings.i.rc
    DEPENDS ${resource_files} WORKING_DIRECTORY ${CMAKE_BINARY_DIR} VERBATIM)
  file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/resources.cpp CONTENT [[
asm(".section .rodata\n.balign 16\n"
    ".global headless_resources_begin\nheadless_resources_begin:\n.incbin \"@res@\"\n"
    ".global headless_resources_end\nheadless_resources_end:\n.byte 0\n.text\n");
]] @ONLY)
  set_source_files_properties(${CMAKE_BINARY_DIR}/resources.cpp PROPERTIES OBJECT_DEPENDS ${res})
  target_sources(resources PRIVATE ${CMAKE_BINARY_DIR}/resources.cpp)
endif()
