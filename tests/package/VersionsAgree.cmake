# The history of releases is written by hand, for people, software centres and Debian: each must begin with the
# project's own version.
function(expect place pattern)
    file(READ ${ROOT}/${place} text)
    string(REGEX MATCH ${pattern} found "${text}")
    if(NOT CMAKE_MATCH_1 STREQUAL VERSION)
        message(SEND_ERROR "${place} says version \"${CMAKE_MATCH_1}\", the project is ${VERSION}")
    endif()
endfunction()

expect(packaging/org.zelvo.StandUp.metainfo.xml "<release version=\"([^\"]*)\"")
expect(CHANGELOG.md "\n## \\[([0-9][^]]*)\\]")
expect(debian/changelog "zelvo-standup \\(([^)]*)\\)")
