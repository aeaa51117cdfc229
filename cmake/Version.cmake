# SPDX-FileCopyrightText: 2026 The Wrenfold authors
# SPDX-License-Identifier: MIT

# WRENFOLD_VERSION and WRENFOLD_RELEASE_DATE, of the newest version in the changelog.
set(_changelog ${CMAKE_CURRENT_LIST_DIR}/../CHANGELOG.md)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${_changelog})
set(_heading "^## \\[([0-9]+\\.[0-9]+\\.[0-9]+)\\] - ([0-9-]+)$")
file(STRINGS ${_changelog} _headings REGEX ${_heading})
list(POP_FRONT _headings _newest)
if(NOT _newest MATCHES ${_heading})
    message(FATAL_ERROR "CHANGELOG.md names no version")
endif()
set(WRENFOLD_VERSION ${CMAKE_MATCH_1})
set(WRENFOLD_RELEASE_DATE ${CMAKE_MATCH_2})
