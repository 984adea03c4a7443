# The fuzzers, what they start from and the words they use.

find_package(Qt${QT_VERSION_MAJOR} ${KORMAK_MINIMUM_QT_${QT_VERSION_MAJOR}} REQUIRED COMPONENTS Test)

foreach(fuzz_target IN LISTS fuzz_targets)
    set(fuzzer fuzz-${fuzz_target})
    add_executable(${fuzzer} Fuzzer.cpp)
    kormak_target_defaults(${fuzzer})
    target_compile_definitions(${fuzzer} PRIVATE FUZZ_TARGET="${fuzz_target}")
    target_link_libraries(${fuzzer} PRIVATE fuzz-targets)
    target_link_options(${fuzzer} PRIVATE -fsanitize=fuzzer)
endforeach()
target_sources(fuzz-Binary PRIVATE BinaryMutator.cpp)

# All others that are fuzzed with documents.
foreach(fuzz_target IN LISTS fuzz_targets)
    if(NOT fuzz_target MATCHES "^(Binary|GeoJson|ToolNew)$")
        target_sources(fuzz-${fuzz_target} PRIVATE XmlMutator.cpp)
        target_link_libraries(fuzz-${fuzz_target} PRIVATE fuzz-mutations)
    endif()
endforeach()

add_executable(fuzz-dictionary MakeDictionary.cpp)
add_executable(fuzz-seeds MakeSeeds.cpp)
target_link_libraries(fuzz-dictionary PRIVATE Qt${QT_VERSION_MAJOR}::Core)
target_link_libraries(fuzz-seeds PRIVATE fuzz-targets Qt${QT_VERSION_MAJOR}::Test)
target_compile_definitions(fuzz-seeds PRIVATE
    EXAMPLES_DIR="${PROJECT_SOURCE_DIR}/examples" SCHEMAS_DIR="${PROJECT_SOURCE_DIR}/schemas"
)
foreach(program fuzz-dictionary fuzz-seeds)
    kormak_target_defaults(${program})
endforeach()

file(GLOB schemas CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/schemas/*.xsd" "${PROJECT_SOURCE_DIR}/schemas/types/*.xsd")
add_custom_command(
    OUTPUT kormak.dict
    COMMAND fuzz-dictionary ${schemas} > kormak.dict
    DEPENDS fuzz-dictionary ${schemas}
    VERBATIM
)
file(GLOB_RECURSE examples CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/examples/*.xml")
add_custom_command(
    OUTPUT seeds.stamp
    COMMAND ${CMAKE_COMMAND} -E rm -rf seeds
    COMMAND fuzz-seeds seeds
    COMMAND ${CMAKE_COMMAND} -E touch seeds.stamp
    DEPENDS fuzz-seeds ${examples}
    VERBATIM
)
add_custom_target(fuzz-inputs ALL DEPENDS kormak.dict seeds.stamp)
