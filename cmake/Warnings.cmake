# The warnings that this project's own code is free of.
set(VANOKA_WARNING_OPTIONS -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
# A field that keeps its default needs no mention in a designated initialiser.
list(APPEND VANOKA_WARNING_OPTIONS -Wno-missing-field-initializers)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # GCC 12 sees overlapping copies in std::string's own operator+ (GCC bug 105651).
    list(APPEND VANOKA_WARNING_OPTIONS -Wno-restrict)
endif()
if(VANOKA_WARNINGS_AS_ERRORS)
    list(APPEND VANOKA_WARNING_OPTIONS -Werror)
endif()

# vanoka_warnings(TARGET): the warnings for all that a target compiles.
function(vanoka_warnings target)
    target_compile_options(${target} PRIVATE ${VANOKA_WARNING_OPTIONS})
endfunction()
