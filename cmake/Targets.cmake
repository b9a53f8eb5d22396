# One call per folder: disclosure_objects(name SOURCES ... DEPENDS ...), disclosure_test(...), disclosure_fuzz(...),
# disclosure_bench(...).
# Every target sees the whole tree from its root, so that an include names the room: "ui/common/TreeModel.h".

# An object library: its users take its objects in, and with them the Qt resources compiled into it.
function(disclosure_objects name)
    cmake_parse_arguments(A "MOC;UNITY" "" "SOURCES;DEPENDS" ${ARGN})
    add_library(${name} OBJECT ${A_SOURCES})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC ${A_DEPENDS})
    if(A_MOC)
        set_target_properties(${name} PROPERTIES AUTOMOC ON AUTORCC ON)
    endif()
    if(A_UNITY)
        set_target_properties(${name} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 16)
    endif()
endfunction()

# A test program of GoogleTest cases, registered with CTest as one test with a time limit in seconds.
function(disclosure_test name)
    cmake_parse_arguments(A "MOC;OWN_MAIN" "TIMEOUT" "SOURCES;DEPENDS;ENVIRONMENT" ${ARGN})
    if(NOT A_TIMEOUT)
        set(A_TIMEOUT 120)
    endif()
    add_executable(${name} ${A_SOURCES})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
    # Relative to the root, where CTest runs them: the compiler's cache then serves a clone in any folder.
    file(RELATIVE_PATH binary_root ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR})
    target_compile_definitions(${name} PRIVATE TEST_DATA="tests/data" SOURCE_ROOT="." BINARY_ROOT="${binary_root}")
    target_link_libraries(${name} PRIVATE ${A_DEPENDS} GTest::gtest GTest::gmock)
    if(NOT A_OWN_MAIN)
        target_link_libraries(${name} PRIVATE GTest::gtest_main)
    endif()
    set_target_properties(${name} PROPERTIES AUTOMOC "${A_MOC}" RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
    add_test(NAME ${name} COMMAND ${name} WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
    set_tests_properties(${name} PROPERTIES TIMEOUT ${A_TIMEOUT} ENVIRONMENT "${A_ENVIRONMENT}")
endfunction()

# A benchmark program, one of the target `benchmarks`; bench.sh runs every program in build/<preset>/bench.
function(disclosure_bench name)
    cmake_parse_arguments(A "MOC" "" "SOURCES;DEPENDS" ${ARGN})
    add_executable(${name} ${A_SOURCES})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} PRIVATE ${A_DEPENDS} benchmark::benchmark)
    set_target_properties(${name} PROPERTIES AUTOMOC "${A_MOC}" RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bench)
    if(NOT TARGET benchmarks)
        add_custom_target(benchmarks)
    endif()
    add_dependencies(benchmarks ${name})
endfunction()

# A fuzz target, registered with CTest to run its CORPUS folder and RUNS mutations of it.
function(disclosure_fuzz name)
    cmake_parse_arguments(A "" "RUNS;CORPUS" "SOURCES;DEPENDS" ${ARGN})
    add_executable(${name} ${A_SOURCES} ${PROJECT_SOURCE_DIR}/tests/support/FuzzMain.cpp)
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} PRIVATE ${A_DEPENDS})
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
    add_test(NAME ${name} COMMAND ${name} --runs ${A_RUNS} ${A_CORPUS})
    # Exact stacks of every allocation, which the sanitizers' preset asks for, make such a program thirty times slower.
    set_tests_properties(${name} PROPERTIES TIMEOUT 120 ENVIRONMENT "ASAN_OPTIONS=fast_unwind_on_malloc=1")
endfunction()
