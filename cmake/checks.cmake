# All checks of both builds. Only "style" runs beside the others, because these share Wine prefixes and wait for windows.
function(qb_check name)
  add_test(NAME ${name} COMMAND ${ARGN} WORKING_DIRECTORY ${CMAKE_SOURCE_DIR})
  set_tests_properties(${name} PROPERTIES RESOURCE_LOCK wine)
endfunction()
add_test(NAME style COMMAND tools/check-style WORKING_DIRECTORY ${CMAKE_SOURCE_DIR})
qb_check(sanitized_tests tools/wine build/sanitized/tests/qbsettings_tests.exe.so)
qb_check(fuzz tools/fuzz)
foreach(name program loading scripts package kit)
  qb_check(${name} tools/check-${name})
endforeach()
# The package check leaves the packed tests.
set_tests_properties(kit PROPERTIES DEPENDS package)
foreach(dpi 120 144 192)
  qb_check(layout_at_${dpi} env QB_DPI=${dpi} tools/wine $<TARGET_FILE:qbsettings_tests> --gtest_filter=LayoutTest.*)
endforeach()
# The size of the screen and its dots per inch.
foreach(screen 1024x768-96 1366x768-96 1366x768-120 1920x1080-144 1600x1200-144 1600x1200-192)
  string(REPLACE "-" ";QB_DPI=" environment QB_SCREEN=${screen})
  qb_check(screen_${screen} env ${environment} tools/wine $<TARGET_FILE:qbsettings_journeys>
    --gtest_filter=ScreenJourney.All*)
endforeach()
# The results of benchmarks would need an idle machine.
qb_check(bench_startup bench/run startup 1)
qb_check(bench_registry bench/run registry 0)
