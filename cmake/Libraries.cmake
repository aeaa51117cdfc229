# SPDX-FileCopyrightText: 2026 The Wrenfold authors
# SPDX-License-Identifier: MIT

# wrenfold_library(NAME SOURCES ... PUBLIC libs ... PRIVATE libs ...)
# One folder is one static library. Its own folder is the only include directory it publishes, so
# that a header of a folder that is not named in PUBLIC or PRIVATE cannot be included.
function(wrenfold_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC ${ARG_PUBLIC} PRIVATE ${ARG_PRIVATE} wrenfold_warnings)
endfunction()
