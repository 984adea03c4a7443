# The API reference is made and installed where there is Doxygen.

find_program(KORMAK_DOXYGEN doxygen DOC "Doxygen, which makes the API reference")
mark_as_advanced(KORMAK_DOXYGEN)
if(NOT KORMAK_DOXYGEN)
    message(STATUS "The API reference is left out: doxygen is missing")
    return()
endif()

set(reference_dir "${PROJECT_BINARY_DIR}/reference")
get_property(headers GLOBAL PROPERTY KORMAK_HEADERS)
file(GLOB pages CONFIGURE_DEPENDS
    "${PROJECT_SOURCE_DIR}/docs/*" "${PROJECT_SOURCE_DIR}/examples/*/*.cpp" "${PROJECT_SOURCE_DIR}/tests/docs/*.cpp"
)
list(JOIN kormak_libraries " " library_names)
list(TRANSFORM kormak_libraries APPEND "_EXPORT=" OUTPUT_VARIABLE export_macros)
list(JOIN export_macros " " export_macros)
string(TOUPPER "${export_macros}" export_macros)

# Another Doxygen than the project is developed with may warn of other things, which is not the user's concern.
add_custom_command(OUTPUT "${reference_dir}/html/index.html"
    COMMAND ${CMAKE_COMMAND} -E rm -rf "${reference_dir}"
    COMMAND ${CMAKE_COMMAND} -E make_directory "${reference_dir}"
    COMMAND ${CMAKE_COMMAND} -E env
        "KORMAK_LIBRARIES=${library_names}" "KORMAK_EXPORTS=${export_macros}" "KORMAK_VERSION=${PROJECT_VERSION}"
        "KORMAK_REFERENCE=${reference_dir}" KORMAK_REFERENCE_WARNINGS=NO
        "${KORMAK_DOXYGEN}" docs/Doxyfile
    DEPENDS ${headers} ${pages} "${PROJECT_SOURCE_DIR}/SECURITY.md"
    WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}"
    COMMENT "Making the API reference"
    VERBATIM
)
add_custom_target(kormak-reference ALL DEPENDS "${reference_dir}/html/index.html")
install(DIRECTORY "${reference_dir}/html" DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/kormak" COMPONENT Documentation)
