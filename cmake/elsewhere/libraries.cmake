# Libraries are those that scripts/compile-elsewhere has made for this machine, and none of the one that runs here.
get_filename_component(CMAKE_FIND_ROOT_PATH "${CMAKE_CURRENT_LIST_DIR}/../../build/elsewhere/${machine}" ABSOLUTE)
set(CMAKE_PREFIX_PATH "${CMAKE_FIND_ROOT_PATH}")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
