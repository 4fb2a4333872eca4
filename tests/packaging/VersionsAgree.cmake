# The version is written down where CMake cannot put it: each place must name the project's own.
function(expect place pattern)
    file(READ ${ROOT}/${place} text)
    string(REGEX MATCH ${pattern} found "${text}")
    if(NOT CMAKE_MATCH_1 STREQUAL VERSION)
        message(SEND_ERROR "${place} says version \"${CMAKE_MATCH_1}\", the project is ${VERSION}")
    endif()
endfunction()

expect(src/resources/Info.json "\"CFBundleShortVersionString\": \"([^\"]*)\"")
expect(packaging/org.zelvo.StandUp.metainfo.xml "<release version=\"([^\"]*)\"")
expect(packaging/zelvo-standup.1 "\n\\.Os \"Zelvo StandUp ([^\"]*)\"")
expect(CHANGELOG.md "\n## \\[([0-9][^]]*)\\]")
