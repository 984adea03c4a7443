# cpack makes Debian packages of the installation: the libraries, what is needed to build with them, and the tool.
# Configure with -DCMAKE_INSTALL_PREFIX=/usr to have the libraries in the folder of their architecture.

set(package "kormak-qt${QT_VERSION_MAJOR}")
set(library_package "lib${package}-${PROJECT_VERSION_MAJOR}")
set(this_version "(= ${PROJECT_VERSION})")
set(qt_package_6 qt6-base-dev)
set(qt_package_5 qtbase5-dev)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME "${package}")
set(CPACK_PACKAGE_CONTACT "Kormak <kormak@localhost>" CACHE STRING "Maintainer named by the packages")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGING_INSTALL_PREFIX "/usr")
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_COMPONENTS_ALL Runtime Devel DevelCommon Tools)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)

# What the packages have of each other, dpkg-shlibdeps does not know before they are installed.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/objectbase" "${PROJECT_BINARY_DIR}/kormak")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME "${library_package}")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "Libraries, built with Qt ${QT_VERSION_MAJOR}.")

set(CPACK_DEBIAN_DEVEL_PACKAGE_NAME "lib${package}-dev")
set(CPACK_DEBIAN_DEVEL_PACKAGE_SECTION libdevel)
string(JOIN ", " CPACK_DEBIAN_DEVEL_PACKAGE_DEPENDS
    "${library_package} ${this_version}"
    "libkormak-common-dev (>= ${PROJECT_VERSION})"
    "${qt_package_${QT_VERSION_MAJOR}} (>= ${KORMAK_QT_VERSION})"
)
set(CPACK_DEBIAN_DEVEL_DESCRIPTION "What programs with Qt ${QT_VERSION_MAJOR} are built with.")

# The same from every build, so that the development packages for Qt 6 and Qt 5 can be installed together.
set(CPACK_DEBIAN_DEVELCOMMON_PACKAGE_NAME libkormak-common-dev)
set(CPACK_DEBIAN_DEVELCOMMON_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELCOMMON_DESCRIPTION
    "The CMake package that finds the libraries for the Qt of a program."
)

# The tool is the same with every Qt: one of the packages is enough.
set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME "kormak-tools-qt${QT_VERSION_MAJOR}")
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "${library_package} ${this_version}")
foreach(relation PROVIDES CONFLICTS REPLACES)
    set(CPACK_DEBIAN_TOOLS_PACKAGE_${relation} kormak-tools)
endforeach()
set(CPACK_DEBIAN_TOOLS_DESCRIPTION
    "The tool that checks, shows and formats documents, and their XML schemas."
)

include(CPack)
