# WebAssembly with the system interface of WASI, compiled with clang. There are no exceptions. What is compiled is
# put together when the module is linked, so that nothing goes in which nobody calls.
set(machine wasm)
set(CMAKE_SYSTEM_NAME Generic)
set(CMAKE_SYSTEM_PROCESSOR wasm32)
include("${CMAKE_CURRENT_LIST_DIR}/libraries.cmake")
set(CMAKE_C_COMPILER "${CMAKE_FIND_ROOT_PATH}/bin/clang")
set(CMAKE_CXX_COMPILER "${CMAKE_FIND_ROOT_PATH}/bin/clang++")
set(CMAKE_AR /usr/bin/ar) # the linker needs no index of an archive
set(CMAKE_RANLIB /usr/bin/ranlib)
set(CMAKE_C_COMPILER_TARGET wasm32-wasi)
set(CMAKE_CXX_COMPILER_TARGET wasm32-wasi)
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY) # a program would need more than is here
set(flags "--sysroot=${CMAKE_FIND_ROOT_PATH}/system -isystem ${CMAKE_FIND_ROOT_PATH}/system/include/wasm32-wasi")
string(APPEND flags " -Oz -DNDEBUG -msimd128 -flto -Wno-deprecated") # newer names of the target are not those of Debian's folders
set(CMAKE_C_FLAGS_INIT "${flags}")
set(CMAKE_CXX_FLAGS_INIT "-nostdinc++ -isystem ${CMAKE_FIND_ROOT_PATH}/c++/v1 ${flags} -fno-exceptions -fno-rtti")
set(CMAKE_EXE_LINKER_FLAGS_INIT "-fuse-ld=${CMAKE_FIND_ROOT_PATH}/bin/wasm-ld -nodefaultlibs -L${CMAKE_FIND_ROOT_PATH}/c++lib")
set(libraries "-lc++ -lc++abi -lc ${CMAKE_FIND_ROOT_PATH}/rt/libclang_rt.builtins-wasm32.a")
set(CMAKE_C_STANDARD_LIBRARIES_INIT "-lc ${CMAKE_FIND_ROOT_PATH}/rt/libclang_rt.builtins-wasm32.a")
set(CMAKE_CXX_STANDARD_LIBRARIES_INIT "${libraries}")
# With binaryen there, clang would hand the module to it, and nobody would have the same one. Before 20 it takes this
# flag for one that leaves nothing to do.
file(REAL_PATH "${CMAKE_CXX_COMPILER}" compiler)
if(compiler MATCHES "/llvm-([0-9]+)/" AND CMAKE_MATCH_1 GREATER_EQUAL 20)
    string(APPEND CMAKE_EXE_LINKER_FLAGS_INIT " --no-wasm-opt")
endif()
