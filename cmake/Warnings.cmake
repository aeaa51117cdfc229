# SPDX-FileCopyrightText: 2026 The Wrenfold authors
# SPDX-License-Identifier: MIT

# What every target of ours is compiled with: the warnings, all of them errors, and the defines
# that keep the Qt code honest.
add_library(wrenfold_warnings INTERFACE)
target_compile_options(wrenfold_warnings INTERFACE
    -Werror -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
    -Wcast-align -Wcast-qual -Wconversion -Wsign-conversion -Wdouble-promotion -Wformat=2
    -Wimplicit-fallthrough -Wold-style-cast -Wunused -Wundef -Wextra-semi
    -Wzero-as-null-pointer-constant -Wsuggest-override
    $<$<CXX_COMPILER_ID:GNU>:-Wlogical-op -Wduplicated-cond -Wduplicated-branches
        -Wmismatched-tags -Wredundant-tags>)
target_compile_definitions(wrenfold_warnings INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY
    QT_NO_URL_CAST_FROM_STRING QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_NO_FOREACH
    QT_STRICT_ITERATORS QT_DISABLE_DEPRECATED_BEFORE=0x060400 QT_MESSAGELOGCONTEXT
    $<$<CONFIG:Debug>:_GLIBCXX_ASSERTIONS>)
target_compile_options(wrenfold_warnings INTERFACE
    $<$<CONFIG:Release>:-D_FORTIFY_SOURCE=2 -fstack-protector-strong>)
target_link_options(wrenfold_warnings INTERFACE
    $<$<CONFIG:Release>:-pie -Wl,-z,relro,-z,now>)

set(WRENFOLD_SANITIZER "" CACHE STRING "Sanitizers to build with, as in -fsanitize=")
if(WRENFOLD_SANITIZER)
    target_compile_options(wrenfold_warnings INTERFACE
        -fsanitize=${WRENFOLD_SANITIZER} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(wrenfold_warnings INTERFACE -fsanitize=${WRENFOLD_SANITIZER})
endif()
