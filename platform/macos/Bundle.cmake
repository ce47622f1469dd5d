# Vanoka.app, as it goes into an input-methods folder.
set(VANOKA_BUNDLE_IDENTIFIER "example.vanoka.inputmethod.Vanoka" CACHE STRING
    "The bundle's identifier: dotted, one part being 'inputmethod', or the system never lists it")
set(VANOKA_INPUT_METHODS_FOLDER "$ENV{HOME}/Library/Input Methods" CACHE PATH
    "Where the input method is installed; for all users it is /Library/Input Methods")
if(NOT ".${VANOKA_BUNDLE_IDENTIFIER}." MATCHES "\\.inputmethod\\.")
    message(FATAL_ERROR "No part of the bundle identifier ${VANOKA_BUNDLE_IDENTIFIER} is 'inputmethod'.")
endif()

find_package(Python3 REQUIRED COMPONENTS Interpreter)
set(sources "${PROJECT_SOURCE_DIR}/packaging/macos")
set(resources "${CMAKE_CURRENT_BINARY_DIR}/resources")

include("${sources}/BundleFiles.cmake")
foreach(language en si)
    set_source_files_properties("${resources}/${language}.lproj/InfoPlist.strings" PROPERTIES
        MACOSX_PACKAGE_LOCATION "Resources/${language}.lproj")
endforeach()

set(icons "${resources}/MenuIcon.pdf" "${resources}/Vanoka.icns")
add_custom_command(OUTPUT ${icons}
    COMMAND Python3::Interpreter "${sources}/make-icons.py" ${icons}
    DEPENDS "${sources}/make-icons.py" VERBATIM)
set_source_files_properties(${icons} PROPERTIES MACOSX_PACKAGE_LOCATION Resources)

add_executable(Vanoka MACOSX_BUNDLE main.mm ${icons}
    "${resources}/en.lproj/InfoPlist.strings" "${resources}/si.lproj/InfoPlist.strings")
target_link_libraries(Vanoka PRIVATE VanokaMacos
    "-framework Cocoa" "-framework Carbon" "-framework InputMethodKit")
set_target_properties(Vanoka PROPERTIES MACOSX_BUNDLE_INFO_PLIST "${resources}/Info.plist")
vanoka_warnings(Vanoka)

install(TARGETS Vanoka BUNDLE DESTINATION "${VANOKA_INPUT_METHODS_FOLDER}" COMPONENT Vanoka)
