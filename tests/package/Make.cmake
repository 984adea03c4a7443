# Builds an example with its Makefile, as it stands in a folder of its own, and runs it: it finds the libraries where they
# are installed without any help. Afterwards it leaves nothing behind.

file(REMOVE_RECURSE "${WORK_DIR}")
file(COPY "${SOURCE_DIR}/Makefile" "${SOURCE_DIR}/main.cpp" DESTINATION "${WORK_DIR}")
set(make make QT=${QT_MAJOR} "CXX=${COMPILER}" "CXXFLAGS=${FLAGS}" "ARGUMENTS=${ARGUMENTS}")
execute_process(
    COMMAND ${CMAKE_COMMAND} -E env --unset=LD_LIBRARY_PATH --unset=LD_RUN_PATH ${make} run
    WORKING_DIRECTORY "${WORK_DIR}" OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY
)
if(NOT output MATCHES "${OUTPUT}")
    message(SEND_ERROR "The program says:\n${output}")
endif()
execute_process(COMMAND ${make} clean WORKING_DIRECTORY "${WORK_DIR}" OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
file(GLOB files RELATIVE "${WORK_DIR}" "${WORK_DIR}/*")
if(NOT files STREQUAL "Makefile;main.cpp")
    message(SEND_ERROR "What is left is ${files}.")
endif()
