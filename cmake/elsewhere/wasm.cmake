# WebAssembly with the system interface of WASI, compiled with clang. There are no exceptions.
set(machine wasm)
set(CMAKE_SYSTEM_NAME Generic)
set(CMAKE_SYSTEM_PROCESSOR wasm32)
include("${CMAKE_CURRENT_LIST_DIR}/libraries.cmake")
set(CMAKE_C_COMPILER "${CMAKE_FIND_ROOT_PATH}/bin/clang")
set(CMAKE_CXX_COMPILER "${CMAKE_FIND_ROOT_PATH}/bin/clang++")
set(CMAKE_C_COMPILER_TARGET wasm32-wasi)
set(CMAKE_CXX_COMPILER_TARGET wasm32-wasi)
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY) # nothing is linked
set(flags "--sysroot=${CMAKE_FIND_ROOT_PATH}/system -isystem ${CMAKE_FIND_ROOT_PATH}/system/include/wasm32-wasi")
set(CMAKE_C_FLAGS_INIT "${flags} -Wno-deprecated") # newer names of the target are not those of Debian's folders
set(CMAKE_CXX_FLAGS_INIT "-nostdinc++ -isystem ${CMAKE_FIND_ROOT_PATH}/c++/v1 ${CMAKE_C_FLAGS_INIT} -fno-exceptions -fno-rtti")
