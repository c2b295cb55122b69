# Sets the date of each file in an archive to that of the last commit, or to a fixed one outside of
# git, so that the archive is reproducible.
execute_process(COMMAND git log -1 --format=%ct WORKING_DIRECTORY ${CMAKE_CURRENT_LIST_DIR}
  OUTPUT_VARIABLE date OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
if(NOT date)
  set(date 1000000000)
endif()
set(ENV{SOURCE_DATE_EPOCH} ${date})
set(ENV{TZ} UTC)
