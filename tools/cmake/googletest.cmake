# GoogleTest: for another system its sources, where Debian's package googletest puts them. A build that
# is only to play does without it, and without tests.
if(CMAKE_CROSSCOMPILING)
    if(EXISTS /usr/src/googletest/googletest)
        set(INSTALL_GTEST OFF)
        add_subdirectory(/usr/src/googletest/googletest googletest EXCLUDE_FROM_ALL)
    endif()
else()
    find_package(GTest QUIET)
endif()
if(NOT TARGET GTest::gtest)
    message(STATUS "No tests: GoogleTest not found")
    set(SOLVANTA_TESTS OFF)
endif()
