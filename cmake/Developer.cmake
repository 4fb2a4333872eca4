# What the project's developers want of every build, and nobody who packages it: the presets load this file, a plain
# `cmake -B build` does not, and takes its flags from the environment alone.
add_compile_options(
    "$<$<COMPILE_LANGUAGE:CXX>:-Wall;-Wextra;-Wpedantic;-Wshadow;-Wconversion;-Wsign-conversion;-Wnon-virtual-dtor>"
    "$<$<COMPILE_LANGUAGE:CXX>:-Woverloaded-virtual;-Wold-style-cast;-Wcast-align;-Wsuggest-override;-Werror>"
    "$<$<COMPILE_LANG_AND_ID:CXX,GNU>:-Wduplicated-cond;-Wlogical-op;-Wuseless-cast>")

find_program(CCACHE ccache)
if(CCACHE)
    # What it must be told to keep objects that were made with precompiled headers.
    set(CMAKE_CXX_COMPILER_LAUNCHER env CCACHE_SLOPPINESS=pch_defines,time_macros ${CCACHE})
endif()
find_program(MOLD mold)
if(MOLD)
    add_link_options(-fuse-ld=mold)
endif()

set(ZELVO_SANITIZE "" CACHE STRING "Sanitizers to build with, as given to -fsanitize")
if(ZELVO_SANITIZE)
    add_compile_options(-fsanitize=${ZELVO_SANITIZE} -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${ZELVO_SANITIZE})
endif()

option(ZELVO_COVERAGE "Count which lines the tests reach" OFF)
if(ZELVO_COVERAGE)
    add_compile_options(--coverage -fprofile-update=atomic)
    add_link_options(--coverage)
endif()
