# What every target of the project is built with, stated once.

include(GenerateExportHeader)

set(KORMAK_INSTALL_INCLUDEDIR "${CMAKE_INSTALL_INCLUDEDIR}/kormak-qt${QT_VERSION_MAJOR}")

if(KORMAK_SANITIZE)
    add_compile_options(-fsanitize=${KORMAK_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${KORMAK_SANITIZE})
elseif(KORMAK_HARDENING AND NOT CMAKE_BUILD_TYPE STREQUAL "Debug")
    include(KormakHardening)
endif()

# kormak_target_defaults(target): language level and warnings.
function(kormak_target_defaults target)
    target_compile_features(${target} PUBLIC cxx_std_17)
    set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic -Wshadow -Wold-style-cast -Wcast-qual
        $<$<BOOL:${KORMAK_WARNINGS_AS_ERRORS}>:-Werror>
    )
    target_compile_definitions(${target} PRIVATE QT_NO_KEYWORDS QT_NO_FOREACH QT_DISABLE_DEPRECATED_BEFORE=0x050F00)
endfunction()

# kormak_strict_text(target): no conversion between bytes and text that is not written out.
function(kormak_strict_text target)
    target_compile_definitions(${target} PRIVATE
        QT_NO_CAST_FROM_ASCII
        QT_NO_CAST_TO_ASCII
        QT_NO_CAST_FROM_BYTEARRAY
        QT_NO_URL_CAST_FROM_STRING
    )
endfunction()

# kormak_strict_conversions(target): no number changes its value or its sign in a conversion that is not written out.
function(kormak_strict_conversions target)
    target_compile_options(${target} PRIVATE -Wconversion -Wsign-conversion)
endfunction()

# kormak_hide(target): what is not marked as exported stays inside the library.
function(kormak_hide target)
    set_target_properties(${target} PROPERTIES
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON
        POSITION_INDEPENDENT_CODE ON
    )
endfunction()

# kormak_precompile(target header...): with KORMAK_PRECOMPILE_HEADERS, what most sources include of the standard library and
# of Qt is read once, together with the headers; without headers, once for all libraries. That sources include what they
# use, a build without it tells.
function(kormak_precompile target)
    if(NOT KORMAK_PRECOMPILE_HEADERS)
        return()
    endif()
    set(headers
        <algorithm> <cmath> <iterator> <map> <memory> <optional> <utility> <vector>
        <QByteArray> <QDateTime> <QHash> <QString> <QStringList> <QStringView> <QVector>
        <QXmlStreamReader> <QXmlStreamWriter>
    )
    if(ARGN)
        target_precompile_headers(${target} PRIVATE ${headers} ${ARGN})
        return()
    endif()
    if(NOT TARGET kormak-qtcore)
        set(source "${PROJECT_BINARY_DIR}/qtcore.cpp")
        file(GENERATE OUTPUT "${source}" CONTENT "")
        add_library(kormak-qtcore OBJECT "${source}")
        kormak_target_defaults(kormak-qtcore)
        kormak_strict_text(kormak-qtcore)
        kormak_strict_conversions(kormak-qtcore)
        kormak_hide(kormak-qtcore)
        target_link_libraries(kormak-qtcore PRIVATE Qt${QT_VERSION_MAJOR}::Core)
        target_precompile_headers(kormak-qtcore PRIVATE ${headers})
    endif()
    target_precompile_headers(${target} REUSE_FROM kormak-qtcore)
endfunction()

# kormak_add_library(target DESCRIPTION text [OUTPUT_NAME name] source...): a library whose headers are included from the
# project root. Its file and its packages are called name, else like the target, and bear the major version of Qt. It is
# added after those that it is linked with; the property KORMAK_LIBRARIES has them all in that order.
function(kormak_add_library target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "DESCRIPTION;OUTPUT_NAME" "")
    if(NOT arg_OUTPUT_NAME)
        set(arg_OUTPUT_NAME ${target})
    endif()
    set_property(GLOBAL APPEND PROPERTY KORMAK_LIBRARIES ${target})
    add_library(${target} ${arg_UNPARSED_ARGUMENTS})
    add_library(Kormak::${target} ALIAS ${target})
    kormak_target_defaults(${target})
    kormak_strict_text(${target})
    kormak_strict_conversions(${target})
    kormak_hide(${target})
    set_target_properties(${target} PROPERTIES
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}
        EXPORT_NAME ${target}
        OUTPUT_NAME ${arg_OUTPUT_NAME}-qt${QT_VERSION_MAJOR}
        KORMAK_DESCRIPTION "${arg_DESCRIPTION}"
        INTERFACE_QT_MAJOR_VERSION ${QT_VERSION_MAJOR}
    )
    set_property(TARGET ${target} APPEND PROPERTY COMPATIBLE_INTERFACE_STRING QT_MAJOR_VERSION)
    generate_export_header(${target})
    if(NOT BUILD_SHARED_LIBS)
        string(TOUPPER ${target} prefix)
        target_compile_definitions(${target} PUBLIC ${prefix}_STATIC_DEFINE)
    elseif(UNIX AND NOT APPLE)
        set(exports "${PROJECT_BINARY_DIR}/exports.map")
        configure_file("${PROJECT_SOURCE_DIR}/cmake/exports.map.in" "${exports}" @ONLY)
        target_link_options(${target} PRIVATE "LINKER:--version-script=${exports}")
        set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS "${exports}")
    endif()
    get_filename_component(binary_root "${CMAKE_CURRENT_BINARY_DIR}" DIRECTORY)
    target_include_directories(${target} PUBLIC
        "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>"
        "$<BUILD_INTERFACE:${binary_root}>"
        "$<INSTALL_INTERFACE:${KORMAK_INSTALL_INCLUDEDIR}>"
    )
endfunction()
