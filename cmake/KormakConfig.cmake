# Kormak for the Qt that the project uses, else for the newest Qt that it is installed for.

include("${CMAKE_CURRENT_LIST_DIR}/KormakQtMajor.cmake")
if(kormak_qt_major IN_LIST kormak_qt_installed)
    include("${CMAKE_CURRENT_LIST_DIR}/../KormakQt${kormak_qt_major}/KormakQt${kormak_qt_major}Config.cmake")
else()
    list(JOIN kormak_qt_installed " and " kormak_qt_names)
    set(${CMAKE_FIND_PACKAGE_NAME}_FOUND FALSE)
    set(${CMAKE_FIND_PACKAGE_NAME}_NOT_FOUND_MESSAGE
        "Kormak is installed here for Qt ${kormak_qt_names}, but this project uses Qt ${kormak_qt_major}."
    )
endif()
