# Read before each package is made.

# All files have the date of the last commit, so that a package is reproducible, or outside of git
# today's.
execute_process(COMMAND git log -1 --format=%ct WORKING_DIRECTORY ${CMAKE_CURRENT_LIST_DIR}
  OUTPUT_VARIABLE date OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
if(NOT date)
  string(TIMESTAMP date %s)
endif()
set(ENV{SOURCE_DATE_EPOCH} ${date})
set(ENV{TZ} UTC)

if(CPACK_GENERATOR STREQUAL DEB)
  find_program(shlibdeps dpkg-shlibdeps)
  if(NOT shlibdeps)
    message(FATAL_ERROR "dpkg-shlibdeps is missing. It is in the Debian package dpkg-dev.")
  endif()
else()
  # The folder that runs where it is unpacked.
  list(GET CPACK_INSTALL_CMAKE_PROJECTS 0 build)
  set(CPACK_INSTALL_CMAKE_PROJECTS ${build} nwbw program / ${build} nwbw demo /)
endif()
