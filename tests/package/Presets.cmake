# README names every preset, and that for users builds what is installed and nothing else.

execute_process(
    COMMAND "${CMAKE_COMMAND}" --list-presets
    WORKING_DIRECTORY "${SOURCE_DIR}" OUTPUT_VARIABLE listed COMMAND_ERROR_IS_FATAL ANY
)
string(REGEX MATCHALL "\"[^\"]+\"" presets "${listed}")
list(TRANSFORM presets REPLACE "\"" "")
file(STRINGS "${SOURCE_DIR}/README.md" rows REGEX "^\\| `[a-z0-9, `-]+ \\| ")
set(named "")
foreach(row IN LISTS rows)
    string(REGEX REPLACE "^\\| ([^|]*) \\|.*" "\\1" names "${row}")
    string(REGEX MATCHALL "`[a-z0-9-]+`" names "${names}")
    list(APPEND named ${names})
endforeach()
list(TRANSFORM named REPLACE "`" "")
list(SORT presets)
list(SORT named)
if(NOT presets OR NOT presets STREQUAL named)
    message(SEND_ERROR "The presets are ${presets}; README names ${named}.")
endif()

set(preset release)
if(QT_MAJOR EQUAL 5)
    set(preset release-qt5)
endif()
file(REMOVE_RECURSE "${WORK_DIR}")
execute_process(
    COMMAND "${CMAKE_COMMAND}" --preset ${preset} -B "${WORK_DIR}" ${OPTIONS}
    WORKING_DIRECTORY "${SOURCE_DIR}" OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY
)
file(STRINGS "${WORK_DIR}/build.ninja" objects REGEX "^build [^:]*\\.o:")
set(unwanted ${objects})
list(FILTER unwanted INCLUDE REGEX "^build (tests|fuzz|benchmarks)/")
if(NOT objects OR unwanted)
    message(SEND_ERROR "${preset} builds ${unwanted}.")
endif()
foreach(folder kormak objectbase inspection models widgets tools)
    if(NOT objects MATCHES "(^|;)build ${folder}/")
        message(SEND_ERROR "${preset} builds nothing of ${folder}.")
    endif()
endforeach()
file(STRINGS "${WORK_DIR}/CMakeCache.txt" qt REGEX "^QT_VERSION_MAJOR:")
if(NOT qt MATCHES "=${QT_MAJOR}$")
    message(SEND_ERROR "${preset} builds with another Qt: ${qt}")
endif()
