# vanoka_warnings(TARGET): the warnings that this project's own code is free of.
function(vanoka_warnings target)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
    # A field that keeps its default needs no mention in a designated initialiser.
    target_compile_options(${target} PRIVATE -Wno-missing-field-initializers)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
        # GCC 12 sees overlapping copies in std::string's own operator+ (GCC bug 105651).
        target_compile_options(${target} PRIVATE -Wno-restrict)
    endif()
    if(VANOKA_WARNINGS_AS_ERRORS)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
endfunction()
