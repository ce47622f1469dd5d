# What makes a slip in memory stop a program, instead of handing it to whoever provoked it: for all that is built here
# for systems with ELF files. tests/hardening.py looks into what was built.

# For sources that are not optimised whatever the preset says: there, checked lengths only give warnings.
set(VANOKA_NOT_OPTIMISED -O0 -U_FORTIFY_SOURCE)

if(APPLE OR NOT UNIX OR CMAKE_SYSTEM_PROCESSOR STREQUAL "wasm32")
    return()
endif()
include(CheckCXXCompilerFlag)
include(CheckPIESupported)

# Every program lies at another address each time.
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
check_pie_supported(LANGUAGES CXX)

# vanoka_harden(FLAG…): the flags, where the compiler knows them for this processor.
function(vanoka_harden)
    set(CMAKE_REQUIRED_FLAGS -Werror)
    foreach(flag IN LISTS ARGN)
        string(MAKE_C_IDENTIFIER "VANOKA_KNOWS${flag}" knows)
        check_cxx_compiler_flag(${flag} ${knows})
        if(${knows})
            add_compile_options(${flag})
        endif()
    endforeach()
endfunction()
vanoka_harden(-fstack-protector-strong -fstack-clash-protection)
vanoka_harden(-fcf-protection=full)         # where x86 processors jump to
vanoka_harden(-mbranch-protection=standard) # and ARM's

# Lengths are checked where the compiler knows them, which it does while it optimises. A sanitizer checks more, and
# does not see through these calls.
if(NOT CMAKE_CXX_FLAGS MATCHES "-fsanitize")
    set(optimised "$<CONFIG:Release,RelWithDebInfo,MinSizeRel>")
    add_compile_options("$<${optimised}:-U_FORTIFY_SOURCE>" "$<${optimised}:-D_FORTIFY_SOURCE=3>")
endif()

# The tables of addresses are filled in at the start and then read-only; nothing on the stack can be run.
add_link_options(LINKER:-z,relro LINKER:-z,now LINKER:-z,noexecstack)
