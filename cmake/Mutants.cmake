# For the preset mutants alone: reading the libraries' headers takes most of the time in which a single file is
# compiled, so they are read beforehand. This project's own headers are not, since they change.
function(vanoka_precompile)
    set(standard <algorithm> <array> <cmath> <cstdint> <functional> <map> <memory> <optional> <set> <span> <string>
        <string_view> <unordered_map> <variant> <vector>)
    target_precompile_headers(VanokaCore PRIVATE ${standard} <nlohmann/json.hpp>)
    foreach(target IN ITEMS VanokaApplication vanoka VanokaLinux VanokaDesktop VanokaCoreTestSupport VanokaTestSupport)
        target_precompile_headers(${target} PRIVATE ${standard})
    endforeach()
    foreach(target IN ITEMS core_tests words_tests application_tests linux_tests c_tests)
        target_precompile_headers(${target} PRIVATE ${standard} <gtest/gtest.h>)
    endforeach()
endfunction()
# What is compiled in its own way cannot take what was read in another.
function(vanoka_precompile_not)
    get_target_property(sources VanokaCore SOURCES)
    get_target_property(folder VanokaCore SOURCE_DIR)
    foreach(source IN LISTS sources)
        get_source_file_property(options "${folder}/${source}" TARGET_DIRECTORY VanokaCore COMPILE_OPTIONS)
        if(options)
            set_source_files_properties("${folder}/${source}" TARGET_DIRECTORY VanokaCore
                PROPERTIES SKIP_PRECOMPILE_HEADERS ON)
        endif()
    endforeach()
endfunction()

# When all targets are known.
cmake_language(DEFER CALL vanoka_precompile)
cmake_language(DEFER CALL vanoka_precompile_not)
