# Which build of Kormak to take when those for several major versions of Qt are installed side by side. Sets
# kormak_qt_installed (newest first), kormak_qt_used (empty if the project does not say) and kormak_qt_major.
# Every build installs this file, so it tells nothing of the build that it comes from.

set(kormak_qt_installed "")
foreach(major 6 5)
    if(EXISTS "${CMAKE_CURRENT_LIST_DIR}/../KormakQt${major}/KormakQt${major}Config.cmake")
        list(APPEND kormak_qt_installed ${major})
    endif()
endforeach()

set(kormak_qt_used "")
if(TARGET Qt6::Core AND NOT TARGET Qt5::Core)
    set(kormak_qt_used 6)
elseif(TARGET Qt5::Core AND NOT TARGET Qt6::Core)
    set(kormak_qt_used 5)
elseif(QT_VERSION_MAJOR)
    set(kormak_qt_used ${QT_VERSION_MAJOR})
elseif(QT_DEFAULT_MAJOR_VERSION)
    set(kormak_qt_used ${QT_DEFAULT_MAJOR_VERSION})
endif()

set(kormak_qt_major "${kormak_qt_used}")
if(kormak_qt_installed AND NOT kormak_qt_used)
    list(GET kormak_qt_installed 0 kormak_qt_major)
endif()
