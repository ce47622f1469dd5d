# Command line tools older than these bring a C++ library that lacks algorithms on ranges.
if(CMAKE_CXX_COMPILER_ID STREQUAL "AppleClang" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 15)
    message(FATAL_ERROR "Building: macOS 13.5, command line tools 15; the result runs on macOS 12.\n"
        "The command line tools found here are of version ${CMAKE_CXX_COMPILER_VERSION}.")
endif()
