# One test program: its sources, linked with the engine's objects (so that it
# sees what the library hides) and what LIBRARIES names.
function(zeldebugdialog_test name)
    cmake_parse_arguments(PARSE_ARGV 1 TEST "" "" "SOURCES;LIBRARIES")
    add_executable(${name} ${TEST_SOURCES})
    zeldebugdialog_build_options(${name})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_link_libraries(${name} PRIVATE ${TEST_LIBRARIES} GTest::gmock GTest::gtest_main)
    add_test(NAME ${name} COMMAND ${name})
endfunction()
