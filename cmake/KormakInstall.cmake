# Installs the libraries, their public headers, the CMake and pkg-config packages, the tool and the schemas. Builds with
# Qt 6 and with Qt 5 fit into the same folder: what differs between them carries the major version of Qt in its name.
#
# Components: each library, by the name of its target, is what a program that uses it needs to run; Devel is what is
# needed to build one, DevelCommon what of that is the same for every Qt, Tools what people run and edit with,
# Documentation the API reference. A library that needs more of Qt than Core has what is needed to build with it in a
# component of its own, widgetsDevel: who builds without it does not need that part of Qt.

include(CMakePackageConfigHelpers)

set(kormak_package "KormakQt${QT_VERSION_MAJOR}")
set(kormak_package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/${kormak_package}")
get_property(kormak_libraries GLOBAL PROPERTY KORMAK_LIBRARIES)

# kormak_qt_modules(result target): the modules of Qt beside Core that the target is linked with itself.
function(kormak_qt_modules result target)
    get_target_property(modules ${target} INTERFACE_LINK_LIBRARIES)
    list(FILTER modules INCLUDE REGEX "^Qt${QT_VERSION_MAJOR}::")
    list(TRANSFORM modules REPLACE "^Qt${QT_VERSION_MAJOR}::" "")
    list(REMOVE_ITEM modules Core)
    set(${result} "${modules}" PARENT_SCOPE)
endfunction()

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
    set_property(GLOBAL APPEND PROPERTY KORMAK_HEADERS ${headers})
    install(FILES ${headers} DESTINATION "${KORMAK_INSTALL_INCLUDEDIR}/${target}" COMPONENT ${kormak_devel_of_${target}})

    kormak_find_libraries_beside(${target} "")
    install(TARGETS ${target}
        EXPORT ${kormak_targets_of_${target}}
        RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT ${target}
        LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT ${target}
        NAMELINK_COMPONENT ${kormak_devel_of_${target}}
        ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT ${kormak_devel_of_${target}}
    )
endfunction()

# kormak_install_tool(target)
function(kormak_install_tool target)
    file(RELATIVE_PATH to_libraries "${CMAKE_INSTALL_FULL_BINDIR}" "${CMAKE_INSTALL_FULL_LIBDIR}")
    kormak_find_libraries_beside(${target} "/${to_libraries}")

    # The builds for several Qts have the tool under the same name.
    get_target_property(name ${target} OUTPUT_NAME)
    set(file "${CMAKE_INSTALL_BINDIR}")
    if(NOT IS_ABSOLUTE "${file}")
        string(PREPEND file "\${CMAKE_INSTALL_PREFIX}/")
    endif()
    install(CODE "
        set(former \"\$ENV{DESTDIR}${file}/${name}\")
        if(EXISTS \"\${former}\")
            file(STRINGS \"\${former}\" loaded REGEX \"^lib[a-z-]+-qt${KORMAK_QT_OTHER_MAJOR}[.]\" LIMIT_COUNT 1)
            if(loaded)
                file(REMOVE \"\${former}\")
                message(STATUS \"The tool for Qt ${KORMAK_QT_OTHER_MAJOR}, which does the same, is replaced by that for Qt ${QT_VERSION_MAJOR}\")
            endif()
        endif()" COMPONENT Tools
    )
    install(TARGETS ${target} RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT Tools)
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

# kormak_install_pkgconfig(target): the file names the folders relative to itself, unless they are installed to absolute
# ones. It requires this version of our libraries, and at least the Qt that they were built with.
function(kormak_install_pkgconfig target)
    get_target_property(pc_library ${target} OUTPUT_NAME)
    get_target_property(pc_description ${target} KORMAK_DESCRIPTION)
    set(pc_name "${pc_library}")
    set(pc_requires "")
    get_target_property(required ${target} INTERFACE_LINK_LIBRARIES)
    foreach(library IN LISTS required)
        if(library IN_LIST kormak_libraries)
            get_target_property(name ${library} OUTPUT_NAME)
            list(APPEND pc_requires "${name} = ${PROJECT_VERSION}")
        elseif(library MATCHES "^Qt${QT_VERSION_MAJOR}::(.*)$")
            list(APPEND pc_requires "Qt${QT_VERSION_MAJOR}${CMAKE_MATCH_1} >= ${KORMAK_QT_VERSION}")
        else()
            message(FATAL_ERROR "${target} requires ${library}, whose name for pkg-config is not known")
        endif()
    endforeach()
    list(JOIN pc_requires ", " pc_requires)
    set(pkgconfig_dir "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
    set(pc_prefix "${CMAKE_INSTALL_PREFIX}")
    if(NOT IS_ABSOLUTE "${pkgconfig_dir}")
        file(RELATIVE_PATH pc_prefix "/${pkgconfig_dir}" "/")
        string(REGEX REPLACE "/$" "" pc_prefix "\${pcfiledir}/${pc_prefix}")
    endif()
    set(pc_includedir "\${prefix}")
    set(pc_libdir "\${prefix}")
    cmake_path(APPEND pc_includedir "${KORMAK_INSTALL_INCLUDEDIR}")
    cmake_path(APPEND pc_libdir "${CMAKE_INSTALL_LIBDIR}")
    set(pc_flags "")
    if(QT_VERSION_MAJOR EQUAL 5)
        string(APPEND pc_flags " -fPIC") # which the headers of Qt 5 demand, though its own file does not say so
    endif()
    if(NOT BUILD_SHARED_LIBS)
        string(TOUPPER " -D${target}_STATIC_DEFINE" definition)
        string(APPEND pc_flags "${definition}")
    endif()
    set(file "${PROJECT_BINARY_DIR}/${pc_library}.pc")
    configure_file("${PROJECT_SOURCE_DIR}/cmake/library.pc.in" "${file}" @ONLY)
    install(FILES "${file}" DESTINATION "${pkgconfig_dir}" COMPONENT ${kormak_devel_of_${target}})
endfunction()

# A program needs at least the Qt that the libraries were built with.
string(REGEX MATCH "^[0-9]+\\.[0-9]+" KORMAK_QT_VERSION "${Qt${QT_VERSION_MAJOR}_VERSION}")
math(EXPR KORMAK_QT_OTHER_MAJOR "11 - ${QT_VERSION_MAJOR}")

# The libraries of Qt Core are always there together; each other one is found when it is asked for.
set(kormak_core_libraries "")
set(kormak_further_libraries "")
set(kormak_modules_of_further "")
foreach(library IN LISTS kormak_libraries)
    kormak_qt_modules(modules ${library})
    if(modules)
        list(APPEND kormak_further_libraries ${library})
        set_property(GLOBAL APPEND PROPERTY KORMAK_FURTHER_LIBRARIES ${library})
        string(APPEND kormak_modules_of_further "set(kormak_qt_modules_${library} ${modules})\n")
        set(kormak_devel_of_${library} ${library}Devel)
        set(kormak_targets_of_${library} ${kormak_package}-${library}-Targets)
    else()
        list(APPEND kormak_core_libraries ${library})
        set(kormak_devel_of_${library} Devel)
        set(kormak_targets_of_${library} ${kormak_package}Targets)
    endif()
endforeach()

foreach(library IN LISTS kormak_libraries)
    kormak_install_library(${library})
    kormak_install_pkgconfig(${library})
endforeach()
if(TARGET kormak-cli)
    kormak_install_tool(kormak-cli)

    # What is made of the texts of the tool.
    get_target_property(texts_dir kormak-cli BINARY_DIR)
    install(FILES "${texts_dir}/kormak.1" DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT Tools)
    install(FILES "${texts_dir}/completions/kormak"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions" COMPONENT Tools
    )
    install(FILES "${texts_dir}/completions/_kormak"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/zsh/site-functions" COMPONENT Tools
    )
endif()

# For editors and validators.
install(DIRECTORY "${PROJECT_SOURCE_DIR}/schemas" DESTINATION "${CMAKE_INSTALL_DATADIR}/kormak" COMPONENT Tools
    FILES_MATCHING PATTERN "*.xsd"
)

# The package of this build, and the package "Kormak" that chooses between the builds beside it.
install(EXPORT ${kormak_package}Targets NAMESPACE Kormak:: DESTINATION "${kormak_package_dir}" COMPONENT Devel)
foreach(library IN LISTS kormak_further_libraries)
    install(EXPORT ${kormak_targets_of_${library}} NAMESPACE Kormak:: DESTINATION "${kormak_package_dir}"
        COMPONENT ${kormak_devel_of_${library}}
    )
endforeach()
configure_package_config_file(
    "${PROJECT_SOURCE_DIR}/cmake/KormakQtConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/${kormak_package}Config.cmake"
    INSTALL_DESTINATION "${kormak_package_dir}"
    NO_SET_AND_CHECK_MACRO NO_CHECK_REQUIRED_COMPONENTS_MACRO
)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/${kormak_package}ConfigVersion.cmake"
    COMPATIBILITY SameMajorVersion
)
install(FILES
    "${PROJECT_BINARY_DIR}/${kormak_package}Config.cmake"
    "${PROJECT_BINARY_DIR}/${kormak_package}ConfigVersion.cmake"
    DESTINATION "${kormak_package_dir}"
    COMPONENT Devel
)
install(FILES
    "${PROJECT_SOURCE_DIR}/cmake/KormakConfig.cmake"
    "${PROJECT_SOURCE_DIR}/cmake/KormakConfigVersion.cmake"
    "${PROJECT_SOURCE_DIR}/cmake/KormakQtMajor.cmake"
    DESTINATION "${CMAKE_INSTALL_LIBDIR}/cmake/Kormak"
    COMPONENT DevelCommon
)
