# Runs before the other package tests: clears their folders and installs the build to a fresh folder, which is then
# moved, for nothing may depend on where it was installed. Every public header is there and no private one.

file(REMOVE_RECURSE "${PREFIX}")
file(GLOB leftovers "${PROGRAMS_DIR}/*/CMakeCache.txt")
foreach(leftover IN LISTS leftovers)
    get_filename_component(program_dir "${leftover}" DIRECTORY)
    file(REMOVE_RECURSE "${program_dir}")
endforeach()

execute_process(
    COMMAND "${CMAKE_COMMAND}" --install "${BINARY_DIR}" --config "${CONFIG}" --prefix "${PREFIX} first"
    COMMAND_ERROR_IS_FATAL ANY
    OUTPUT_QUIET
)
file(RENAME "${PREFIX} first" "${PREFIX}")

# compare(what installed expected): both are lists of relative paths.
function(compare what installed expected)
    list(SORT installed)
    list(SORT expected)
    if(NOT installed STREQUAL expected)
        message(FATAL_ERROR "Installed ${what}:\n  ${installed}\nExpected:\n  ${expected}")
    endif()
endfunction()

set(include_dir "${PREFIX}/include/kormak-qt${QT_MAJOR}")
file(GLOB_RECURSE installed RELATIVE "${include_dir}" "${PREFIX}/include/*")
set(public "")
foreach(folder IN LISTS LIBRARIES)
    file(GLOB headers RELATIVE "${SOURCE_DIR}" "${SOURCE_DIR}/${folder}/*.h")
    list(APPEND public ${headers} "${folder}/${folder}_export.h")
endforeach()
list(FILTER public EXCLUDE REGEX "_p\\.h$")
compare("headers" "${installed}" "${public}")

# What the tool comes with, if it is built.
foreach(path man/man1/kormak.1 bash-completion/completions/kormak zsh/site-functions/_kormak)
    if(EXISTS "${PREFIX}/bin/kormak" AND NOT EXISTS "${PREFIX}/share/${path}")
        message(FATAL_ERROR "share/${path} is not installed")
    endif()
endforeach()

# The API reference, where there is Doxygen to make it.
set(reference "${PREFIX}/share/doc/kormak/html")
foreach(page index.html classKORMAK_1_1Job.html classTESSEL_1_1ITesselObject.html classKORMAK_1_1Document.html)
    if(REFERENCE AND NOT EXISTS "${reference}/${page}")
        message(FATAL_ERROR "${reference} lacks ${page}")
    endif()
endforeach()
if(NOT REFERENCE AND EXISTS "${reference}")
    message(FATAL_ERROR "${reference} comes from nowhere")
endif()

file(GLOB_RECURSE installed RELATIVE "${PREFIX}/share/kormak/schemas" "${PREFIX}/share/kormak/schemas/*")
file(GLOB_RECURSE schemas RELATIVE "${SOURCE_DIR}/schemas" "${SOURCE_DIR}/schemas/*.xsd")
compare("schemas" "${installed}" "${schemas}")
