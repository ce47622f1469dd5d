# vanoka_qml_packages(RESULT FOLDER): the Debian packages of the QML modules that the files in a folder import.
# None of them comes by itself: a QML module is looked up when the window opens, so no library refers to it.
function(vanoka_qml_packages result folder)
    file(GLOB_RECURSE files CONFIGURE_DEPENDS "${folder}/*.qml")
    set(packages)
    foreach(file IN LISTS files)
        file(STRINGS "${file}" imports REGEX "^import +Qt")
        foreach(import IN LISTS imports)
            string(REGEX REPLACE "^import +([A-Za-z0-9.]+).*" "\\1" module "${import}")
            # The styles of the controls come with the controls.
            string(REGEX REPLACE "^QtQuick\\.Controls\\..*" "QtQuick.Controls" module "${module}")
            string(TOLOWER "${module}" module)
            string(REPLACE "." "-" module "${module}")
            # What modules import themselves.
            if(module STREQUAL "qtquick")
                list(APPEND packages qml6-module-qtqml-workerscript)
            elseif(module STREQUAL "qtquick-controls")
                list(APPEND packages qml6-module-qtquick-templates qml6-module-qtquick-window)
            endif()
            if(module STREQUAL "qtqml")
                continue() # built into the library
            endif()
            list(APPEND packages "qml6-module-${module}")
        endforeach()
    endforeach()
    list(REMOVE_DUPLICATES packages)
    list(SORT packages)
    set(${result} "${packages}" PARENT_SCOPE)
endfunction()
