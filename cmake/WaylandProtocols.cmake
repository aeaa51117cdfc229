# SPDX-FileCopyrightText: 2026 The Wrenfold authors
# SPDX-License-Identifier: MIT
enable_language(C)
find_program(WAYLAND_SCANNER wayland-scanner REQUIRED)
pkg_check_modules(WAYLAND_CLIENT REQUIRED IMPORTED_TARGET wayland-client)

set(WRENFOLD_OWN_PROTOCOLS ${PROJECT_SOURCE_DIR}/protocols)
pkg_get_variable(WRENFOLD_WAYLAND_PROTOCOLS wayland-protocols pkgdatadir)
pkg_get_variable(WAYLAND_PREFIX wayland-protocols prefix)
set(WRENFOLD_PLASMA_PROTOCOLS ${WAYLAND_PREFIX}/share/plasma-wayland-protocols)
file(GLOB WRENFOLD_WLR_PROTOCOLS
    ${WAYLAND_PREFIX}/share/cargo/registry/wayland-protocols-*/wlr-protocols/unstable)

# wrenfold_wayland_protocols(NAME FILE...)
# A library with the client's side of the protocols that these XML files describe.
function(wrenfold_wayland_protocols name)
    set(folder ${CMAKE_CURRENT_BINARY_DIR}/${name})
    file(MAKE_DIRECTORY ${folder})
    set(generated)
    foreach(description ${ARGN})
        cmake_path(GET description STEM stem)
        foreach(kind client-header private-code)
            string(REGEX REPLACE ".*-(.).*" "\\1" suffix ${kind})
            set(output ${folder}/${stem}.${suffix})
            add_custom_command(OUTPUT ${output}
                COMMAND ${WAYLAND_SCANNER} ${kind} ${description} ${output}
                DEPENDS ${description} VERBATIM)
            list(APPEND generated ${output})
        endforeach()
    endforeach()
    add_library(${name} STATIC ${generated})
    set_target_properties(${name} PROPERTIES AUTOMOC OFF)
    target_include_directories(${name} SYSTEM PUBLIC ${folder})
    target_link_libraries(${name} PUBLIC PkgConfig::WAYLAND_CLIENT)
endfunction()
