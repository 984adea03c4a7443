# What every target of the project is built with, stated once.

include(GenerateExportHeader)

if(KORMAK_SANITIZE)
    add_compile_options(-fsanitize=${KORMAK_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${KORMAK_SANITIZE})
endif()

# kormak_target_defaults(target): language level and warnings.
function(kormak_target_defaults target)
    target_compile_features(${target} PUBLIC cxx_std_17)
    set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic -Wshadow -Wold-style-cast -Wcast-qual -Wnon-virtual-dtor
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

# kormak_add_library(target source...): a library whose headers are included from the project root.
function(kormak_add_library target)
    add_library(${target} ${ARGN})
    add_library(Kormak::${target} ALIAS ${target})
    kormak_target_defaults(${target})
    kormak_strict_text(${target})
    set_target_properties(${target} PROPERTIES
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON
        POSITION_INDEPENDENT_CODE ON
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}
        EXPORT_NAME ${target}
    )
    generate_export_header(${target})
    if(NOT BUILD_SHARED_LIBS)
        string(TOUPPER ${target} prefix)
        target_compile_definitions(${target} PUBLIC ${prefix}_STATIC_DEFINE)
    endif()
    get_filename_component(binary_root "${CMAKE_CURRENT_BINARY_DIR}" DIRECTORY)
    target_include_directories(${target} PUBLIC
        "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>"
        "$<BUILD_INTERFACE:${binary_root}>"
        "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>"
    )
endfunction()
