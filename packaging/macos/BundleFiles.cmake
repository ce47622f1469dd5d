# Fills the bundle's templates into the folder `resources`. A part of the build, and a script by itself.
string(REPLACE "&" "&amp;" company_in_xml "${VANOKA_COMPANY_NAME}")
string(REPLACE "<" "&lt;" company_in_xml "${company_in_xml}")
string(REPLACE ">" "&gt;" company_in_xml "${company_in_xml}")
string(REPLACE "\\" "\\\\" name_in_strings "${VANOKA_SINHALA_NAME}")
string(REPLACE "\"" "\\\"" name_in_strings "${name_in_strings}")

configure_file("${CMAKE_CURRENT_LIST_DIR}/Info.plist.in" "${resources}/Info.plist" @ONLY)
foreach(language en si)
    configure_file("${CMAKE_CURRENT_LIST_DIR}/${language}.lproj/InfoPlist.strings.in"
        "${resources}/${language}.lproj/InfoPlist.strings" @ONLY)
endforeach()
