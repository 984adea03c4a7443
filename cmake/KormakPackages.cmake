# cpack makes Debian packages of the installation: one of each library, what is needed to build with them, beside it what
# is needed to build with those that need more of Qt, the API reference, and the tool.
# Configure with -DCMAKE_INSTALL_PREFIX=/usr to have the libraries in the folder of their architecture.

set(package "kormak-qt${QT_VERSION_MAJOR}")
set(this_version "(= ${PROJECT_VERSION})")
set(qt_package_6 qt6-base-dev)
set(qt_package_5 qtbase5-dev)

# Static libraries are a part of what is needed to build.
set(packaged_libraries "")
if(BUILD_SHARED_LIBS)
    set(packaged_libraries ${kormak_libraries})
endif()

# kormak_library_package(result library): its name is that by which programs load the library, with the version.
function(kormak_library_package result library)
    get_target_property(name ${library} OUTPUT_NAME)
    set(${result} "lib${name}-${PROJECT_VERSION_MAJOR}" PARENT_SCOPE)
endfunction()

# kormak_linked_packages(result target): the packages of those libraries that the target is linked with, directly or not.
function(kormak_linked_packages result target)
    set(packages "")
    get_target_property(linked ${target} LINK_LIBRARIES)
    foreach(library IN LISTS linked)
        if(library IN_LIST packaged_libraries)
            kormak_library_package(package ${library})
            list(APPEND packages "${package} ${this_version}")
        endif()
        if(TARGET "${library}")
            kormak_linked_packages(further ${library})
            list(APPEND packages ${further})
        endif()
    endforeach()
    list(REMOVE_DUPLICATES packages)
    set(${result} "${packages}" PARENT_SCOPE)
endfunction()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME "${package}")
set(CPACK_PACKAGE_CONTACT "Kormak <kormak@localhost>" CACHE STRING "Maintainer named by the packages")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGING_INSTALL_PREFIX "/usr")
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_COMPONENTS_ALL ${packaged_libraries} Devel DevelCommon Tools)
foreach(library IN LISTS kormak_further_libraries)
    list(APPEND CPACK_COMPONENTS_ALL ${kormak_devel_of_${library}})
endforeach()
if(TARGET kormak-reference)
    list(APPEND CPACK_COMPONENTS_ALL Documentation)
endif()

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)

# What the packages have of each other, dpkg-shlibdeps does not know before they are installed.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "")
set(library_packages "")
foreach(library IN LISTS packaged_libraries)
    get_target_property(dir ${library} BINARY_DIR)
    list(APPEND CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${dir}")

    kormak_library_package(name ${library})
    if(library IN_LIST kormak_core_libraries)
        list(APPEND library_packages "${name} ${this_version}")
    endif()
    kormak_linked_packages(linked ${library})
    get_target_property(description ${library} KORMAK_DESCRIPTION)
    string(TOUPPER ${library} component)
    set(CPACK_DEBIAN_${component}_PACKAGE_NAME "${name}")
    set(CPACK_DEBIAN_${component}_PACKAGE_SECTION libs)
    list(JOIN linked ", " CPACK_DEBIAN_${component}_PACKAGE_DEPENDS)
    set(CPACK_DEBIAN_${component}_DESCRIPTION "${description}. Built with Qt ${QT_VERSION_MAJOR}.")
endforeach()

set(CPACK_DEBIAN_DEVEL_PACKAGE_NAME "lib${package}-dev")
set(CPACK_DEBIAN_DEVEL_PACKAGE_SECTION libdevel)
string(JOIN ", " CPACK_DEBIAN_DEVEL_PACKAGE_DEPENDS
    ${library_packages}
    "libkormak-common-dev (>= ${PROJECT_VERSION})"
    "${qt_package_${QT_VERSION_MAJOR}} (>= ${KORMAK_QT_VERSION})"
)
set(CPACK_DEBIAN_DEVEL_DESCRIPTION "What programs with Qt ${QT_VERSION_MAJOR} are built with.")
foreach(library IN LISTS kormak_further_libraries)
    get_target_property(name ${library} OUTPUT_NAME)
    kormak_qt_modules(modules ${library})
    list(JOIN modules " and Qt " modules)
    string(TOUPPER ${kormak_devel_of_${library}} component)
    set(CPACK_DEBIAN_${component}_PACKAGE_NAME "lib${name}-dev")
    set(CPACK_DEBIAN_${component}_PACKAGE_SECTION libdevel)
    set(CPACK_DEBIAN_${component}_PACKAGE_DEPENDS "lib${package}-dev ${this_version}")
    if(library IN_LIST packaged_libraries)
        kormak_library_package(name ${library})
        string(APPEND CPACK_DEBIAN_${component}_PACKAGE_DEPENDS ", ${name} ${this_version}")
    endif()
    set(CPACK_DEBIAN_${component}_DESCRIPTION
        "What programs with Qt ${modules} for Qt ${QT_VERSION_MAJOR} are built with."
    )
endforeach()

# The same from every build, so that the development packages for Qt 6 and Qt 5 can be installed together.
set(CPACK_DEBIAN_DEVELCOMMON_PACKAGE_NAME libkormak-common-dev)
set(CPACK_DEBIAN_DEVELCOMMON_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELCOMMON_DESCRIPTION
    "The CMake package that finds the libraries for the Qt of a program."
)

# The same from every build, too.
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_NAME libkormak-doc)
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_SECTION doc)
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_DOCUMENTATION_DESCRIPTION "The API reference of the libraries, in HTML.")
set(CPACK_DEBIAN_DEVEL_PACKAGE_SUGGESTS libkormak-doc)

# The tool is the same with every Qt: one of the packages is enough.
set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME "kormak-tools-qt${QT_VERSION_MAJOR}")
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION utils)
if(TARGET kormak-cli)
    kormak_linked_packages(linked kormak-cli)
    list(JOIN linked ", " CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS)
endif()
foreach(relation PROVIDES CONFLICTS REPLACES)
    set(CPACK_DEBIAN_TOOLS_PACKAGE_${relation} kormak-tools)
endforeach()
set(CPACK_DEBIAN_TOOLS_DESCRIPTION
    "The tool that checks, shows and formats documents, and their XML schemas."
)

include(CPack)
