# Makes the Debian packages and unpacks them into one folder. Their names, what they depend on and what they own is as
# it should be.

get_filename_component(work_dir "${ROOT}" DIRECTORY)
file(REMOVE_RECURSE "${work_dir}")
file(MAKE_DIRECTORY "${ROOT}")
execute_process(
    COMMAND "${CPACK}" -G DEB -C "${CONFIG}" --config "${BINARY_DIR}/CPackConfig.cmake" -B "${work_dir}"
    COMMAND_ERROR_IS_FATAL ANY
    OUTPUT_QUIET
)

# field(result package name)
function(field result package name)
    execute_process(
        COMMAND dpkg-deb --field "${package}" "${name}"
        OUTPUT_VARIABLE text OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY
    )
    set(${result} "${text}" PARENT_SCOPE)
endfunction()

# expect(package field pattern...): each pattern is matched by an entry of the field.
function(expect package name)
    set(text "${${package}_${name}}")
    foreach(pattern IN LISTS ARGN)
        if(NOT ", ${text}," MATCHES ", ${pattern},")
            message(SEND_ERROR "${package}: ${name} is \"${text}\"; \"${pattern}\" is missing")
        endif()
    endforeach()
endfunction()

file(GLOB files "${work_dir}/*.deb")
set(packages "")
set(owned "")
foreach(file IN LISTS files)
    field(package "${file}" Package)
    list(APPEND packages "${package}")
    foreach(name Version Architecture Depends Suggests Conflicts Provides)
        field(${package}_${name} "${file}" ${name})
    endforeach()
    execute_process(COMMAND dpkg-deb --extract "${file}" "${work_dir}/${package}" COMMAND_ERROR_IS_FATAL ANY)
    execute_process(COMMAND dpkg-deb --extract "${file}" "${ROOT}" COMMAND_ERROR_IS_FATAL ANY)
    file(GLOB_RECURSE ${package}_files RELATIVE "${work_dir}/${package}" "${work_dir}/${package}/*")
    list(APPEND owned ${${package}_files})
endforeach()

list(TRANSFORM LIBRARIES REPLACE "(.+)" "\\1-${SOVERSION}" OUTPUT_VARIABLE libraries)
list(SORT libraries)
set(devel libkormak-qt${QT_MAJOR}-dev)
set(common libkormak-common-dev)
set(tools kormak-tools-qt${QT_MAJOR})
set(expected ${tools} ${common} ${devel} ${libraries})
set(reference libkormak-doc)
if(REFERENCE)
    list(APPEND expected ${reference})
endif()
list(SORT expected)
list(SORT packages)
if(NOT packages STREQUAL expected)
    message(SEND_ERROR "The packages are ${packages}.")
endif()
foreach(package IN LISTS packages)
    expect(${package} Version "${VERSION}")
endforeach()

set(qt_library_6 "libqt6core6")
set(qt_library_5 "libqt5core5a")
set(qt_devel_6 "qt6-base-dev")
set(qt_devel_5 "qtbase5-dev")
foreach(library IN LISTS libraries)
    expect(${library} Depends "${qt_library_${QT_MAJOR}} .*" "libstdc\\+\\+6 .*")
    expect(${devel} Depends "${library} \\(= ${VERSION}\\)")
endforeach()
expect(${devel} Depends "${common} \\(>= ${VERSION}\\)" "${qt_devel_${QT_MAJOR}} .*")
expect(${tools} Depends "${qt_library_${QT_MAJOR}} .*" "libc6 .*")
expect(${tools} Conflicts "kormak-tools")
expect(${tools} Provides "kormak-tools")

# The reference is the same for all machines and every Qt.
if(REFERENCE)
    expect(${reference} Architecture all)
    expect(${devel} Suggests ${reference})
    set(others ${${reference}_files})
    list(FILTER others EXCLUDE REGEX "^usr/share/doc/kormak/html/")
    if(others OR NOT EXISTS "${ROOT}/usr/share/doc/kormak/html/index.html")
        message(SEND_ERROR "${reference} owns ${${reference}_files}")
    endif()
endif()

# A package holds the library that it is called after, and brings those that its programs and libraries load.
foreach(name IN LISTS LIBRARIES)
    set(file "lib/[^;]*${name}\\.so\\.")
    if(NOT "${${name}-${SOVERSION}_files}" MATCHES "${file}${SOVERSION};[^;]*${file}${VERSION}$")
        message(SEND_ERROR "${name}-${SOVERSION} owns ${${name}-${SOVERSION}_files}")
    endif()
endforeach()
foreach(package ${libraries} ${tools})
    set(loading ${${package}_files})
    list(FILTER loading INCLUDE REGEX "\\.so\\.${SOVERSION}$|bin/")
    foreach(file IN LISTS loading)
        execute_process(
            COMMAND "${READELF}" --wide --dynamic "${work_dir}/${package}/${file}"
            OUTPUT_VARIABLE dynamic COMMAND_ERROR_IS_FATAL ANY
        )
        foreach(name IN LISTS LIBRARIES)
            if(dynamic MATCHES "NEEDED[^\n]*\\[${name}\\.so\\.${SOVERSION}\\]")
                expect(${package} Depends "${name}-${SOVERSION} \\(= ${VERSION}\\)")
            endif()
        endforeach()
    endforeach()
endforeach()

# The texts of the tool are in its package, unless the build is without it.
foreach(path man/man1/kormak.1 bash-completion/completions/kormak zsh/site-functions/_kormak)
    if(EXISTS "${work_dir}/${tools}/usr/bin/kormak" AND NOT EXISTS "${work_dir}/${tools}/usr/share/${path}")
        message(SEND_ERROR "${tools} lacks usr/share/${path}: ${${tools}_files}")
    endif()
endforeach()

# No file belongs to two packages, and those for both versions of Qt share none but what the tools have.
set(unique ${owned})
list(REMOVE_DUPLICATES unique)
if(NOT "${unique}" STREQUAL "${owned}")
    message(SEND_ERROR "A file belongs to two packages: ${owned}")
endif()
foreach(package ${libraries} ${devel})
    list(FILTER ${package}_files EXCLUDE REGEX "[qQ]t${QT_MAJOR}")
    if(${package}_files)
        message(SEND_ERROR "${package} owns files that do not name their Qt: ${${package}_files}")
    endif()
endforeach()
list(LENGTH ${common}_files count)
if(NOT count EQUAL 3)
    message(SEND_ERROR "${common} owns ${${common}_files}")
endif()
foreach(path IN LISTS ${common}_files)
    get_filename_component(name "${path}" NAME)
    execute_process(
        COMMAND "${CMAKE_COMMAND}" -E compare_files "${ROOT}/${path}" "${SOURCE_DIR}/cmake/${name}"
        COMMAND_ERROR_IS_FATAL ANY
    )
endforeach()
