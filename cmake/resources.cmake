# Compiles QBSettings.rc once per build, by windres or by Wine's resource compiler.
file(GLOB resource_files CONFIGURE_DEPENDS resources/*)
set(rc ${CMAKE_CURRENT_SOURCE_DIR}/resources/QBSettings.rc)
set(rc_version QB_VERSION_MAJOR=${PROJECT_VERSION_MAJOR} QB_VERSION_MINOR=${PROJECT_VERSION_MINOR}
  QB_VERSION_PATCH=${PROJECT_VERSION_PATCH})
# Only ./package sets the origin, because the sources of other builds may have uncommitted changes.
foreach(origin QB_COMMIT QB_DEBIAN QB_GCC)
  set(${origin} unknown CACHE STRING "As ./package sets it")
  list(APPEND rc_version ${origin}=${${origin}})
endforeach()

if(WIN32)
  add_library(resources OBJECT)
  target_sources(resources PRIVATE ${rc})
  target_compile_definitions(resources PRIVATE ${rc_version})
  target_include_directories(resources PRIVATE resources)
  set_source_files_properties(${rc} PROPERTIES OBJECT_DEPENDS "${resource_files}")
else()
  set(res ${CMAKE_BINARY_DIR}/QBSettings.res)
  list(TRANSFORM rc_version PREPEND -D)
  add_custom_command(OUTPUT ${res}
    # Debian's wrc does not find the code pages without this option.
    COMMAND wrc --nls-dir=/usr/share/wine/nls ${rc_version} -I/usr/include/wine/wine/windows
      -I${CMAKE_CURRENT_SOURCE_DIR}/resources -o ${res} ${rc}
    DEPENDS ${resource_files} VERBATIM)
  add_custom_target(compiled_resources DEPENDS ${res})
  add_library(resources INTERFACE)
  add_dependencies(resources compiled_resources)
  target_link_libraries(resources INTERFACE ${res})
endif()
