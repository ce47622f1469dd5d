# Builds for macOS on Linux with the folder that make_sdk.py has laid out, VANOKA_SDK: the toolchain file of the
# preset macos-on-linux.
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES VANOKA_SDK)
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)

set(CMAKE_SYSTEM_NAME Darwin)
set(CMAKE_OSX_SYSROOT "${VANOKA_SDK}" CACHE PATH "Where the headers and libraries of macOS are")
set(CMAKE_C_COMPILER "${VANOKA_SDK}/bin/clang")
set(CMAKE_CXX_COMPILER "${VANOKA_SDK}/bin/clang++")
set(CMAKE_OBJCXX_COMPILER "${VANOKA_SDK}/bin/clang++")
foreach(language C CXX OBJCXX)
    set(CMAKE_${language}_COMPILER_TARGET arm64-apple-macosx)
    # An archive for both processors is what Apple's tool makes, and llvm's of that name.
    set(CMAKE_${language}_CREATE_STATIC_LIBRARY
        "\"${VANOKA_SDK}/bin/libtool\" -static -o <TARGET> <OBJECTS>")
endforeach()
set(CMAKE_EXE_LINKER_FLAGS_INIT -fuse-ld=lld)

# Whatever the oldest macOS that is served lacks is an error.
set(CMAKE_CXX_FLAGS_INIT -Wunguarded-availability)
set(CMAKE_OBJCXX_FLAGS_INIT "-Wunguarded-availability -Wundeclared-selector")
