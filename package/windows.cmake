# Creates the archive for Windows next to this system's one, if the cross compiler is installed.
find_program(compiler x86_64-w64-mingw32-g++-posix)
if(NOT compiler)
  message(STATUS "No mingw-w64 on this system, so there is no archive for Windows.")
  return()
endif()

set(build ${CPACK_PACKAGE_DIRECTORY}/windows)
execute_process(COMMAND_ERROR_IS_FATAL ANY
  WORKING_DIRECTORY ${CMAKE_CURRENT_LIST_DIR}/..
  COMMAND ${CMAKE_COMMAND} --preset windows-program -B ${build} --log-level=WARNING
    -DCPACK_PACKAGE_DIRECTORY=${CPACK_PACKAGE_DIRECTORY})
execute_process(COMMAND_ERROR_IS_FATAL ANY
  COMMAND ${CMAKE_COMMAND} --build ${build} --target package)
