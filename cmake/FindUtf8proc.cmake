# The Unicode library utf8proc, as the target Utf8proc::Utf8proc.
find_path(Utf8proc_INCLUDE_DIR utf8proc.h)
find_library(Utf8proc_LIBRARY utf8proc)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Utf8proc REQUIRED_VARS Utf8proc_LIBRARY Utf8proc_INCLUDE_DIR)

if(Utf8proc_FOUND AND NOT TARGET Utf8proc::Utf8proc)
    add_library(Utf8proc::Utf8proc UNKNOWN IMPORTED)
    set_target_properties(Utf8proc::Utf8proc PROPERTIES
        IMPORTED_LOCATION "${Utf8proc_LIBRARY}"
        INTERFACE_INCLUDE_DIRECTORIES "${Utf8proc_INCLUDE_DIR}")
    # Windows has to be told when nothing is imported from a DLL.
    if(WIN32 AND NOT Utf8proc_LIBRARY MATCHES "\\.dll\\.a$")
        set_target_properties(Utf8proc::Utf8proc PROPERTIES INTERFACE_COMPILE_DEFINITIONS UTF8PROC_STATIC)
    endif()
endif()
mark_as_advanced(Utf8proc_INCLUDE_DIR Utf8proc_LIBRARY)
