# Installs the libraries, their public headers and the CMake package "Kormak". Component Runtime is what a program
# needs to run, component Devel what is needed to build one.

include(CMakePackageConfigHelpers)

set(kormak_package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/Kormak")

# kormak_install_library(target): public is the header beside a source, a header among the sources, and the generated
# export header; what ends in _p.h is not.
function(kormak_install_library target)
    get_target_property(source_dir ${target} SOURCE_DIR)
    get_target_property(binary_dir ${target} BINARY_DIR)
    get_target_property(sources ${target} SOURCES)
    set(headers "${binary_dir}/${target}_export.h")
    foreach(source IN LISTS sources)
        string(REGEX REPLACE "\\.cpp$" ".h" header "${source}")
        cmake_path(ABSOLUTE_PATH header BASE_DIRECTORY "${source_dir}")
        if(header MATCHES "\\.h$" AND NOT header MATCHES "_p\\.h$" AND EXISTS "${header}")
            list(APPEND headers "${header}")
        endif()
    endforeach()
    install(FILES ${headers} DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/${target}" COMPONENT Devel)

    kormak_find_libraries_beside(${target} "")
    install(TARGETS ${target}
        EXPORT KormakTargets
        RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT Runtime
        LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT Runtime NAMELINK_COMPONENT Devel
        ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT Devel
    )
endfunction()

# kormak_install_tool(target)
function(kormak_install_tool target)
    file(RELATIVE_PATH to_libraries "${CMAKE_INSTALL_FULL_BINDIR}" "${CMAKE_INSTALL_FULL_LIBDIR}")
    kormak_find_libraries_beside(${target} "/${to_libraries}")
    install(TARGETS ${target} RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT Runtime)
endfunction()

# An installation works from any folder: what is installed looks for the libraries relative to itself.
function(kormak_find_libraries_beside target path)
    if(CMAKE_INSTALL_RPATH)
        return()
    endif()
    if(APPLE)
        set_target_properties(${target} PROPERTIES INSTALL_RPATH "@loader_path${path}")
    elseif(UNIX)
        set_target_properties(${target} PROPERTIES INSTALL_RPATH "$ORIGIN${path}")
    endif()
endfunction()

kormak_install_library(objectbase)
kormak_install_library(kormak)
if(TARGET kormak-cli)
    kormak_install_tool(kormak-cli)
endif()

# For editors and validators. One file for each kind of document; what they share stands in types/.
set(kormak_schema_dir "${CMAKE_INSTALL_DATADIR}/kormak/schemas")
install(FILES
    "${PROJECT_SOURCE_DIR}/schemas/ActivityGeneration.xsd"
    "${PROJECT_SOURCE_DIR}/schemas/AntennaData.xsd"
    "${PROJECT_SOURCE_DIR}/schemas/Area.xsd"
    "${PROJECT_SOURCE_DIR}/schemas/AutomaticWorkflow.xsd"
    "${PROJECT_SOURCE_DIR}/schemas/GenericReceiver.xsd"
    "${PROJECT_SOURCE_DIR}/schemas/Job.xsd"
    "${PROJECT_SOURCE_DIR}/schemas/JobHeader.xsd"
    "${PROJECT_SOURCE_DIR}/schemas/Parameter.xsd"
    DESTINATION "${kormak_schema_dir}" COMPONENT Runtime
)
install(FILES
    "${PROJECT_SOURCE_DIR}/schemas/types/AntennaData.xsd"
    "${PROJECT_SOURCE_DIR}/schemas/types/Area.xsd"
    "${PROJECT_SOURCE_DIR}/schemas/types/JobHeader.xsd"
    "${PROJECT_SOURCE_DIR}/schemas/types/Parameter.xsd"
    "${PROJECT_SOURCE_DIR}/schemas/types/Texts.xsd"
    DESTINATION "${kormak_schema_dir}/types" COMPONENT Runtime
)

install(EXPORT KormakTargets NAMESPACE Kormak:: DESTINATION "${kormak_package_dir}" COMPONENT Devel)

# A program needs at least the Qt that the libraries were built with.
if(QT_VERSION_MAJOR EQUAL 6)
    set(KORMAK_QT_OTHER_MAJOR 5)
else()
    set(KORMAK_QT_OTHER_MAJOR 6)
endif()
string(REGEX MATCH "^[0-9]+\\.[0-9]+" KORMAK_QT_VERSION "${Qt${QT_VERSION_MAJOR}_VERSION}")
configure_package_config_file(
    "${PROJECT_SOURCE_DIR}/cmake/KormakConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/KormakConfig.cmake"
    INSTALL_DESTINATION "${kormak_package_dir}"
    NO_SET_AND_CHECK_MACRO
)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/KormakConfigVersion.cmake" COMPATIBILITY SameMajorVersion)
install(FILES
    "${PROJECT_BINARY_DIR}/KormakConfig.cmake"
    "${PROJECT_BINARY_DIR}/KormakConfigVersion.cmake"
    DESTINATION "${kormak_package_dir}"
    COMPONENT Devel
)
