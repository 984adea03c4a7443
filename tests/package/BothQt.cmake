# Installs both builds into one folder, in either order: the outcome is the same, and each has all that it has alone. Of
# the tool, the one that is installed last stays, which is said.

# install_builds(prefix build...): sets files to what is installed.
function(install_builds prefix)
    file(REMOVE_RECURSE "${prefix}")
    foreach(build IN LISTS ARGN)
        execute_process(
            COMMAND "${CMAKE_COMMAND}" --install "${build}" --config "${CONFIG}" --prefix "${prefix}"
            COMMAND_ERROR_IS_FATAL ANY
            OUTPUT_VARIABLE output
        )
        set(last "${build}")
    endforeach()
    string(FIND "${output}" "The tool for Qt" said)
    list(LENGTH ARGN builds)
    if(EXISTS "${prefix}/bin/kormak")
        file(STRINGS "${last}/CMakeCache.txt" qt REGEX "^QT_VERSION_MAJOR:")
        string(REGEX REPLACE ".*=" "" qt "${qt}")
        file(STRINGS "${prefix}/bin/kormak" loaded REGEX "^libkormak-qt[56][.]")
        if(NOT loaded MATCHES "^libkormak-qt${qt}[.]")
            message(SEND_ERROR "The tool of ${last} loads ${loaded}")
        endif()
        if((builds GREATER 1 AND said EQUAL -1) OR (builds EQUAL 1 AND NOT said EQUAL -1))
            message(SEND_ERROR "Installing ${ARGN} says:\n${output}")
        endif()
    endif()
    file(GLOB_RECURSE files RELATIVE "${prefix}" "${prefix}/*")
    set(files "${files}" PARENT_SCOPE)
endfunction()

set(expected "")
foreach(build IN LISTS BUILDS)
    install_builds("${PREFIX}" "${build}")
    list(APPEND expected ${files})
endforeach()
list(REMOVE_DUPLICATES expected)
list(SORT expected)

list(REVERSE BUILDS)
install_builds("${PREFIX} other order" ${BUILDS})
list(REVERSE BUILDS)
install_builds("${PREFIX}" ${BUILDS})

list(SORT files)
if(NOT files STREQUAL expected)
    message(SEND_ERROR "Installed:\n  ${files}\nExpected:\n  ${expected}")
endif()
foreach(file IN LISTS expected)
    if(file MATCHES "^bin/")
        continue() # each build has a tool of its own
    endif()
    execute_process(
        COMMAND "${CMAKE_COMMAND}" -E compare_files "${PREFIX}/${file}" "${PREFIX} other order/${file}"
        COMMAND_ERROR_IS_FATAL ANY
    )
endforeach()
