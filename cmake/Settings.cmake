# Language level and layout that every target of the project shares. Warnings, compiler cache, linker and sanitizers are
# the developers' choice and stand in cmake/Developer.cmake, so that a packager's own flags are the only ones.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)

add_compile_definitions(QT_NO_KEYWORDS QT_NO_CAST_TO_ASCII QT_STRICT_ITERATORS)

# The one exception is small code rather than quick code: the program waits for people, and costs them its memory.
set(ZELVO_SMALL_CODE $<$<NOT:$<CONFIG:Debug>>:-Os>)

# zelvo_library(NAME sources...): one static library for one source folder.
# Includes are written from the source root, so that each line shows which folder it reaches into.
# Targets with Q_OBJECT classes or Designer forms switch AUTOMOC and AUTOUIC on themselves; the others build without.
function(zelvo_library name)
    add_library(${name} STATIC ${ARGN})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR})
endfunction()

# zelvo_program(NAME LIBRARIES libraries... SOURCES sources...): one program in bin/.
function(zelvo_program name)
    cmake_parse_arguments(PARSE_ARGV 1 program "" "" "SOURCES;LIBRARIES")
    add_executable(${name} ${program_SOURCES})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} PRIVATE ${program_LIBRARIES})
endfunction()
