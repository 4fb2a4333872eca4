# Language level, warnings and sanitizers that every target of the project shares.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)

set(CMAKE_CXX_FLAGS_RELWITHDEBINFO "-O2 -g1 -DNDEBUG")

find_program(CCACHE ccache)
if(CCACHE)
    # What it must be told to keep objects that were made with precompiled headers.
    set(CMAKE_CXX_COMPILER_LAUNCHER env CCACHE_SLOPPINESS=pch_defines,time_macros ${CCACHE})
endif()
find_program(MOLD mold)
if(MOLD)
    add_link_options(-fuse-ld=mold)
endif()

add_compile_definitions(QT_NO_KEYWORDS QT_NO_CAST_TO_ASCII QT_STRICT_ITERATORS)

add_library(zelvo_warnings INTERFACE)
target_compile_options(zelvo_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor
    -Woverloaded-virtual -Wold-style-cast -Wcast-align -Wsuggest-override -Werror
    $<$<CXX_COMPILER_ID:GNU>:-Wduplicated-cond -Wlogical-op -Wuseless-cast>)

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

# zelvo_library(NAME sources...): one static library for one source folder.
# Includes are written from the source root, so that each line shows which folder it reaches into.
# Targets with Q_OBJECT classes or Designer forms switch AUTOMOC and AUTOUIC on themselves; the others build without.
function(zelvo_library name)
    add_library(${name} STATIC ${ARGN})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} PRIVATE zelvo_warnings)
endfunction()
