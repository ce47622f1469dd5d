# Runs before a package is made of the staged files. Without a time in it, so that the same source makes the
# same package.
find_program(gzip gzip REQUIRED)
file(GLOB_RECURSE documents "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*")
list(FILTER documents INCLUDE REGEX "/man/man[1-9]/[^/]*[.][1-9]$|/doc/[^/]*/changelog$")
foreach(document IN LISTS documents)
    execute_process(COMMAND "${gzip}" -9n "${document}" COMMAND_ERROR_IS_FATAL ANY)
endforeach()
