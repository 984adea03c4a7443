# The version of the build that KormakConfig.cmake will take; of any build when it has to refuse.

include("${CMAKE_CURRENT_LIST_DIR}/KormakQtMajor.cmake")
if(NOT kormak_qt_installed)
    set(PACKAGE_VERSION_UNSUITABLE TRUE)
    return()
endif()
if(NOT kormak_qt_major IN_LIST kormak_qt_installed)
    list(GET kormak_qt_installed 0 kormak_qt_major)
endif()
include("${CMAKE_CURRENT_LIST_DIR}/../KormakQt${kormak_qt_major}/KormakQt${kormak_qt_major}ConfigVersion.cmake")
