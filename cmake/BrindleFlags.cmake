# One INTERFACE target carries the language level, the warnings and the
# sanitizer switches; every Brindle target links it.
add_library(brindle_flags INTERFACE)
target_compile_features(brindle_flags INTERFACE cxx_std_20)
set(CMAKE_CXX_EXTENSIONS OFF)

if(MSVC)
    target_compile_options(brindle_flags INTERFACE /W4 /permissive-)
else()
    target_compile_options(brindle_flags INTERFACE -Wall -Wextra -Wpedantic)
endif()

target_compile_definitions(brindle_flags INTERFACE
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
    QT_USE_QSTRINGBUILDER)

if(BRINDLE_SANITIZE OR BRINDLE_FUZZ)
    if(NOT MSVC)
        target_compile_options(brindle_flags INTERFACE -fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
        target_link_options(brindle_flags INTERFACE -fsanitize=address,undefined)
    endif()
endif()

# Rebuilds of several work trees share compiled objects when ccache is there.
find_program(BRINDLE_CCACHE ccache)
if(BRINDLE_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${BRINDLE_CCACHE})
endif()
