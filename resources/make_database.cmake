# SPDX-License-Identifier: GPL-3.0-or-later
# Makes the database DATABASE with the shell SHELL out of SCHEMA, if it is not there. What is there is never touched: it
# holds an operator's logs. The file gets its name when it is whole.
if(EXISTS ${DATABASE})
    return()
endif()
set(draft ${DATABASE}.new)
file(REMOVE ${draft} ${draft}-wal ${draft}-shm)
get_filename_component(folder ${DATABASE} DIRECTORY)
file(MAKE_DIRECTORY ${folder})
# The schema stands in the place of the start-up file, so that no settings of the user's own are read.
execute_process(COMMAND ${SHELL} -batch -bail -init ${SCHEMA} ${draft} "PRAGMA user_version"
    RESULT_VARIABLE result OUTPUT_QUIET ERROR_VARIABLE words)
if(NOT result EQUAL 0)
    file(REMOVE ${draft} ${draft}-wal ${draft}-shm)
    message(FATAL_ERROR "${SCHEMA}: ${words}")
endif()
file(RENAME ${draft} ${DATABASE} NO_REPLACE RESULT result)
file(REMOVE ${draft}) # where the new name came by a link, the old one is still there
if(NOT EXISTS ${DATABASE})
    message(FATAL_ERROR "${DATABASE}: ${result}")
endif()
message(STATUS "Made ${DATABASE}")
