# The kept inputs, one test for each target, whether a property that does not hold is noticed, and what documents are
# changed by.

find_package(Qt${QT_VERSION_MAJOR} ${KORMAK_MINIMUM_QT_${QT_VERSION_MAJOR}} REQUIRED COMPONENTS Test)

set(fuzz_tests Corpus InspectionProperties Properties XmlMutations)
if(ToolDocument IN_LIST fuzz_targets)
    list(APPEND fuzz_tests ToolProperties)
endif()
foreach(test IN LISTS fuzz_tests)
    add_executable(${test}Test ${test}Test.cpp)
    set_target_properties(${test}Test PROPERTIES AUTOMOC ON)
    kormak_target_defaults(${test}Test)
    target_link_libraries(${test}Test PRIVATE fuzz-targets Qt${QT_VERSION_MAJOR}::Test)
endforeach()
target_link_libraries(XmlMutationsTest PRIVATE fuzz-mutations)
target_compile_definitions(CorpusTest PRIVATE CORPUS_DIR="${CMAKE_CURRENT_SOURCE_DIR}/corpus")

foreach(fuzz_target IN LISTS fuzz_targets)
    add_test(NAME Corpus.${fuzz_target} COMMAND CorpusTest ${fuzz_target})
endforeach()
list(REMOVE_ITEM fuzz_tests Corpus)
foreach(test IN LISTS fuzz_tests)
    add_test(NAME ${test} COMMAND ${test}Test)
endforeach()

# The command that runs fuzzers knows them all.
find_program(KORMAK_bash bash)
mark_as_advanced(KORMAK_bash)
if(KORMAK_bash AND ToolDocument IN_LIST fuzz_targets)
    list(SORT fuzz_targets)
    list(JOIN fuzz_targets " " fuzz_target_names)
    add_test(NAME FuzzTargets COMMAND ${KORMAK_bash} "${PROJECT_SOURCE_DIR}/scripts/fuzz")
    set_tests_properties(FuzzTargets PROPERTIES
        ENVIRONMENT LC_ALL=C PASS_REGULAR_EXPRESSION "Targets: ${fuzz_target_names}\n"
    )
endif()
