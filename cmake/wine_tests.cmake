# Runs the tests of the Windows program under Wine.

# Debian packages GoogleTest's sources, which are cross-compiled here.
set(INSTALL_GTEST OFF)
add_subdirectory(/usr/src/googletest/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)

# A Wine prefix for this build, created once. It asks for no further packages, and its consoles do
# not appear on the user's screen. The windows of the tests do not wait for a window manager, which
# the hidden display lacks: that took two seconds for each. Its resolution is not the usual one, so
# that a length that is not scaled shows.
set(wine_environment
  DISPLAY=
  WINEPREFIX=${CMAKE_CURRENT_BINARY_DIR}/wine
  WINEDEBUG=-all
  WINEDLLOVERRIDES=mscoree,mshtml=
  LC_ALL=C.UTF-8
)
add_custom_command(OUTPUT wine/system.reg
  COMMAND ${CMAKE_COMMAND} -E env ${wine_environment} wine wineboot --init
  COMMAND ${CMAKE_COMMAND} -E env ${wine_environment}
    wine reg add "HKCU\\Software\\Wine\\AppDefaults\\win32_tests.exe\\X11 Driver" /v Managed /d N /f
  COMMAND ${CMAKE_COMMAND} -E env ${wine_environment}
    wine reg add "HKCU\\Control Panel\\Desktop" /v LogPixels /t REG_DWORD /d 144 /f
  COMMENT "Creating a Wine prefix for the tests"
  VERBATIM
)
add_custom_target(wine_prefix ALL DEPENDS wine/system.reg)

# Starting a program under Wine is slow, so each test program is one test.
function(nwbw_tests program)
  add_test(NAME ${program} COMMAND ${program})
  set_tests_properties(${program} PROPERTIES
    ENVIRONMENT "${wine_environment}" TIMEOUT ${nwbw_time_limit} RESOURCE_LOCK wine)
endfunction()

# The same for a program that opens windows, on a hidden display. Wine stays with the display it
# started on, so it is restarted for this program.
function(nwbw_window_tests program)
  add_test(NAME ${program} COMMAND
    sh -c "\"$1\" --kill; exec xvfb-run --auto-servernum wine \"$0\""
    $<TARGET_FILE:${program}> ${PROJECT_SOURCE_DIR}/scripts/wineserver)
  set_tests_properties(${program} PROPERTIES
    ENVIRONMENT "${wine_environment}" TIMEOUT ${nwbw_time_limit} RESOURCE_LOCK wine)
endfunction()

# The tour of the real program, in a prefix of its own beside the other tests. The tour itself is a
# program of this system: scripts/build dev tour.
add_test(NAME tour_windows
  COMMAND ${PROJECT_SOURCE_DIR}/scripts/hidden-display
    ${PROJECT_SOURCE_DIR}/build/dev/bin/tour ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR})
set_tests_properties(tour_windows PROPERTIES TIMEOUT ${nwbw_time_limit})
