# The two libraries that the core needs, from their makers' sources: a Mac has none of them, and those of its
# package managers are for one processor only. Built into the program.
include(FetchContent)
set(FETCHCONTENT_QUIET OFF)
set(CMAKE_POLICY_VERSION_MINIMUM 3.5) # utf8proc names an older one than new CMakes take
set(JSON_SystemInclude ON CACHE BOOL "" FORCE)
set(UTF8PROC_ENABLE_TESTING OFF CACHE BOOL "" FORCE)
set(JSON_BuildTests OFF CACHE BOOL "" FORCE)
set(JSON_Install OFF CACHE BOOL "" FORCE)
set(BUILD_SHARED_LIBS OFF)
FetchContent_Declare(utf8proc
    URL https://github.com/JuliaStrings/utf8proc/archive/v2.8.0.tar.gz
    URL_HASH SHA256=a0a60a79fe6f6d54e7d411facbfcc867a6e198608f2cd992490e46f04b1bcecc)
FetchContent_Declare(nlohmann_json
    URL https://github.com/nlohmann/json/archive/v3.11.2.tar.gz
    URL_HASH SHA256=d69f9deb6a75e2580465c6c4c5111b89c4dc2fa94e3a85fcd2ffcd9a143d9273)
FetchContent_MakeAvailable(utf8proc nlohmann_json)
if(NOT TARGET Utf8proc::Utf8proc)
    add_library(Utf8proc::Utf8proc ALIAS utf8proc)
endif()
