# How the tests of the Windows program run under Wine.

# Debian has GoogleTest for other systems as sources.
set(INSTALL_GTEST OFF)
add_subdirectory(/usr/src/googletest/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)

# A Windows of the build's own, made once. It asks for no further packages.
set(wine_environment
  WINEPREFIX=${CMAKE_BINARY_DIR}/wine
  WINEDEBUG=-all
  WINEDLLOVERRIDES=mscoree,mshtml=
  LC_ALL=C.UTF-8
)
add_test(NAME wine COMMAND wine wineboot --init)
set_tests_properties(wine PROPERTIES ENVIRONMENT "${wine_environment}" FIXTURES_SETUP wine)

# Each start under Wine takes its time, so that a program with tests is one test here.
function(nwbw_tests program)
  add_test(NAME ${program} COMMAND ${program})
  set_tests_properties(${program} PROPERTIES
    ENVIRONMENT "${wine_environment}" FIXTURES_REQUIRED wine)
endfunction()
