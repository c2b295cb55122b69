# How the tests of the Windows program run under Wine.

# Debian has GoogleTest for other systems as sources.
set(INSTALL_GTEST OFF)
add_subdirectory(/usr/src/googletest/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)

# A Windows of the build's own, made once. It asks for no further packages, and its consoles stay
# off the user's screen.
set(wine_environment
  DISPLAY=
  WINEPREFIX=${CMAKE_CURRENT_BINARY_DIR}/wine
  WINEDEBUG=-all
  WINEDLLOVERRIDES=mscoree,mshtml=
  LC_ALL=C.UTF-8
)
add_custom_command(OUTPUT wine/system.reg
  COMMAND ${CMAKE_COMMAND} -E env ${wine_environment} wine wineboot --init
  COMMENT "Making a Windows for the tests"
  VERBATIM
)
add_custom_target(wine_prefix ALL DEPENDS wine/system.reg)

# Each start under Wine takes its time, so that a program with tests is one test here.
function(nwbw_tests program)
  add_test(NAME ${program} COMMAND ${program})
  set_tests_properties(${program} PROPERTIES ENVIRONMENT "${wine_environment}" TIMEOUT ${nwbw_time_limit})
endfunction()

# The same for a program that opens windows: on a screen that nobody sees. Wine keeps to the screen
# that it began with, so it begins anew and for this program alone.
function(nwbw_window_tests program)
  add_test(NAME ${program} COMMAND
    sh -c "wineserver --kill; exec xvfb-run --auto-servernum wine \"$0\"" $<TARGET_FILE:${program}>)
  set_tests_properties(${program} PROPERTIES
    ENVIRONMENT "${wine_environment}" TIMEOUT ${nwbw_time_limit} RUN_SERIAL ON)
endfunction()

# The tour of the real program. The guide is a program of this system.
add_test(NAME tour_guide COMMAND ${PROJECT_SOURCE_DIR}/scripts/build dev tour)
set_tests_properties(tour_guide PROPERTIES FIXTURES_SETUP tour_guide TIMEOUT ${nwbw_time_limit})
add_test(NAME tour_windows
  COMMAND ${PROJECT_SOURCE_DIR}/build/dev/bin/tour ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR})
set_tests_properties(tour_windows PROPERTIES
  FIXTURES_REQUIRED tour_guide RUN_SERIAL ON TIMEOUT ${nwbw_time_limit})
