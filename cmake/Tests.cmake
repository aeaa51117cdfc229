# SPDX-FileCopyrightText: 2026 The Wrenfold authors
# SPDX-License-Identifier: MIT
find_package(GTest REQUIRED)
find_package(Qt6 6.4 REQUIRED COMPONENTS Test)
include(GoogleTest)

set(WRENFOLD_TEST_PREFIX "" CACHE STRING "What the names of a sanitized build's tests begin with")

function(_wrenfold_test_executable name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_include_directories(${name} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(${name} PRIVATE ${ARG_LIBS} wrenfold_test_support GTest::gmock
        wrenfold_warnings)
endfunction()

# wrenfold_test(NAME SOURCES ... LIBS ...)
# A fast test program without a display, one ctest entry a case.
function(wrenfold_test name)
    _wrenfold_test_executable(${name} ${ARGN})
    gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST
        TEST_PREFIX "${WRENFOLD_TEST_PREFIX}${name}." PROPERTIES
        TIMEOUT 120)
endfunction()

# wrenfold_session_test(NAME SESSION SOURCES ... LIBS ...)
# A test program that needs the real thing: each case runs on a private desktop of its own, of a kind
# that scripts/private-desktop names. The label "desktop" selects them (ctest -L desktop).
function(wrenfold_session_test name session)
    _wrenfold_test_executable(${name} ${ARGN})
    set_target_properties(${name} PROPERTIES CROSSCOMPILING_EMULATOR
        "${PROJECT_SOURCE_DIR}/scripts/private-desktop;--session;${session}")
    gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST
        TEST_PREFIX "${WRENFOLD_TEST_PREFIX}${name}." PROPERTIES
        TIMEOUT 300 LABELS desktop)
endfunction()

# wrenfold_desktop_test(NAME SOURCES ... LIBS ...)
# The same on X11.
function(wrenfold_desktop_test name)
    wrenfold_session_test(${name} x11 ${ARGN})
endfunction()

# wrenfold_desktop_test_again(NAME VARIANT NAME=VALUE)
# The cases of a desktop test once more, as NAME.VARIANT.*, with this environment variable: one
# only, for of a list gtest_discover_tests would pass on no more than the first.
function(wrenfold_desktop_test_again name variant assignment)
    gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST
        TEST_PREFIX "${WRENFOLD_TEST_PREFIX}${name}.${variant}." TEST_LIST ${name}_${variant}
        PROPERTIES TIMEOUT 300 LABELS desktop ENVIRONMENT "${assignment}")
endfunction()
