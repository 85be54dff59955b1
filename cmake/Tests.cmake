# One test program: its sources, linked with the engine's objects (so that it
# sees what the library hides) and what LIBRARIES names. Where valgrind is there
# and nothing else watches the memory, a second test runs the program under it,
# with fewer records; not where it would watch the wrong program, or come between
# a program and what that counts: WITHOUT_VALGRIND.
#
#   zeldebugdialog_test(name [WITHOUT_VALGRIND] SOURCES ... LIBRARIES ...)
find_program(ZELDEBUGDIALOG_VALGRIND valgrind)

# Who makes the precompiled header that all test programs use.
add_executable(TestHeaders EXCLUDE_FROM_ALL ${CMAKE_CURRENT_LIST_DIR}/TestHeaders.cpp)
zeldebugdialog_build_options(TestHeaders)
target_link_libraries(TestHeaders PRIVATE GTest::gmock)
target_precompile_headers(TestHeaders PRIVATE <gmock/gmock.h> <gtest/gtest.h>)

function(zeldebugdialog_test name)
    cmake_parse_arguments(PARSE_ARGV 1 TEST "WITHOUT_VALGRIND" "" "SOURCES;LIBRARIES")
    add_executable(${name} ${TEST_SOURCES})
    zeldebugdialog_build_options(${name})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_link_libraries(${name} PRIVATE ${TEST_LIBRARIES} GTest::gmock GTest::gtest_main)
    target_precompile_headers(${name} REUSE_FROM TestHeaders)
    add_test(NAME ${name} COMMAND ${name})

    if(ZELDEBUGDIALOG_VALGRIND AND NOT TEST_WITHOUT_VALGRIND
       AND NOT ZELDEBUGDIALOG_SANITIZERS)
        add_test(NAME memory.${name}
            COMMAND ${ZELDEBUGDIALOG_VALGRIND} --quiet --error-exitcode=99
                --leak-check=full --errors-for-leak-kinds=all
                $<TARGET_FILE:${name}>)
        set_tests_properties(memory.${name} PROPERTIES LABELS memory
            ENVIRONMENT ZELDEBUGDIALOG_FEWER_RECORDS=1)
    endif()
endfunction()
