# Where everything is built from nothing, several sources of a target are compiled
# as one (CMAKE_UNITY_BUILD): their common headers are then read once, by the
# compiler and by clang-tidy. A build to work with does not, and shows that each
# source stands by itself.

# Those that give names of their own to what another source of their target calls
# the same, which is right: such names are seen in one file. They are compiled
# with others of their kind; and what meets the same name there, in the list below.
set(ZELDEBUGDIALOG_COMPILED_APART
    debug_dialog/src/KvoOption_Parser/ConfigDeviceClause.cpp
    debug_dialog/src/KvoOption_Parser/OptionDispatcher.cpp
    debug_dialog/src/KvoOption_Parser/PpcSimulatorClause.cpp
    design_model/src/library/Library.cpp
    design_model/src/proposals/DebugModuleCandidates.cpp
    design_model/src/proposals/Words.cpp
    design_model/src/xml/Identity.cpp
    fuzz/operations/TargetOperations.cpp
    tests/configuration_model/ChangeTest.cpp
    tests/configuration_model/DraftTest.cpp
    tests/configuration_model/HistoryTest.cpp
    tests/configuration_model/LossTest.cpp
    tests/configuration_model/MessagesTest.cpp
    tests/configuration_model/SaveTest.cpp
    tests/configuration_model/TablesTest.cpp
    tests/design_model/DesignTest.cpp
    tests/design_model/KindTableTest.cpp
    tests/design_model/LibraryTest.cpp
    tests/design_model/NumeralsTest.cpp
    tests/design_model/QuoteTest.cpp
    tests/design_model/WalkTest.cpp
    tests/language/ConfigDeviceClauseTest.cpp
    tests/language/DebugModuleTest.cpp
    tests/language/ExplainedWordsTest.cpp
    tests/language/LocaleTest.cpp
    tests/project_file/EditTextTest.cpp
    tests/project_file/MergeTest.cpp
    tests/project_file/SyncTest.cpp
    tests/robustness/LoneDashTest.cpp
    tests/trace/CommandWordsTest.cpp
    tests/zeldebug/ListCommandTest.cpp
    tests/zeldebug/SyncCommandTest.cpp)
set(ZELDEBUGDIALOG_COMPILED_FURTHER_APART
    debug_dialog/src/KvoOption_Parser/DebugDeviceClause.cpp
    debug_dialog/src/KvoOption_Parser/VirtualPlatformClause.cpp
    design_model/src/proposals/PeripheralCandidates.cpp
    tests/configuration_model/PrintableTest.cpp
    tests/design_model/ParameterTest.cpp
    tests/language/DebugDeviceClauseTest.cpp
    tests/language/JtagOptionsTest.cpp
    tests/language/LoneMinusTest.cpp
    tests/language/RoundTripTest.cpp
    tests/project_file/FaultsTest.cpp)
# Who meets it there too; those that a program of the tests has another version of;
# and what must not become one with who calls it.
set(ZELDEBUGDIALOG_COMPILED_ALONE
    debug_dialog/src/KvoOption_Parser/FslClause.cpp
    debug_dialog/src/KvoOption_Parser/StubLineClause.cpp
    design_model/src/proposals/ProcessorCandidates.cpp
    tests/configuration_model/RoundtripCommandTest.cpp
    tests/configuration_model/StateTest.cpp
    tests/configuration_model/ValuesTest.cpp
    tests/configuration_model/WordsTest.cpp
    tests/language/OptionDispatcherTest.cpp
    tests/language/SimulatorTest.cpp
    debug_dialog/src/KvoOption_Parser/ConnectCommand.cpp
    design_model/src/xml/XmlNames.cpp
    tests/performance/CountedRegion.cpp
    tests/performance/CountingNew.cpp
    zeldebug/src/main.cpp)
list(TRANSFORM ZELDEBUGDIALOG_COMPILED_APART PREPEND ${PROJECT_SOURCE_DIR}/)
list(TRANSFORM ZELDEBUGDIALOG_COMPILED_FURTHER_APART PREPEND ${PROJECT_SOURCE_DIR}/)
list(TRANSFORM ZELDEBUGDIALOG_COMPILED_ALONE PREPEND ${PROJECT_SOURCE_DIR}/)

# So many at once: enough that headers cost little, few enough that two cores
# share the work.
set(ZELDEBUGDIALOG_COMPILED_AS_ONE 32)

# Puts the sources of a target into groups.
function(zeldebugdialog_unity_groups target)
    set(number_of_usual 0)
    set(number_of_apart 0)
    set(number_of_further_apart 0)
    get_target_property(sources ${target} SOURCES)
    list(FILTER sources INCLUDE REGEX "[.]cpp$")
    foreach(source ${sources})
        cmake_path(ABSOLUTE_PATH source NORMALIZE)
        if(source IN_LIST ZELDEBUGDIALOG_COMPILED_ALONE)
            continue()
        endif()
        set(kind usual)
        if(source IN_LIST ZELDEBUGDIALOG_COMPILED_APART)
            set(kind apart)
        elseif(source IN_LIST ZELDEBUGDIALOG_COMPILED_FURTHER_APART)
            set(kind further_apart)
        endif()
        math(EXPR group "${number_of_${kind}} / ${ZELDEBUGDIALOG_COMPILED_AS_ONE}")
        math(EXPR number_of_${kind} "${number_of_${kind}} + 1")
        set_source_files_properties(${source} PROPERTIES UNITY_GROUP ${kind}_${group})
    endforeach()
    set_target_properties(${target} PROPERTIES UNITY_BUILD_MODE GROUP)
endfunction()

# What a target needs to be compiled so.
function(zeldebugdialog_unity_options target)
    zeldebugdialog_unity_groups(${target})
    # Of what tests share, a program takes what it needs, and is linked with
    # nothing that the rest would need.
    get_target_property(type ${target} TYPE)
    if(type STREQUAL STATIC_LIBRARY
            AND CMAKE_CURRENT_SOURCE_DIR MATCHES "^${PROJECT_SOURCE_DIR}/(tests|fuzz)")
        set_target_properties(${target} PROPERTIES UNITY_BUILD OFF)
    endif()
    # Of a larger unit than it is told here the compiler inlines less. That makes
    # slower by some hundredths what people wait for, which these libraries hold.
    # The others do without: they are compiled in half the time.
    set(measured debug_dialog design_model configuration_model)
    cmake_path(RELATIVE_PATH CMAKE_CURRENT_SOURCE_DIR
        BASE_DIRECTORY ${PROJECT_SOURCE_DIR} OUTPUT_VARIABLE folder)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND NOT CMAKE_BUILD_TYPE STREQUAL "Debug"
            AND folder IN_LIST measured)
        target_compile_options(${target} PRIVATE --param=large-unit-insns=60000)
    endif()
    # Up to a gigabyte the compiler need not look for memory to use again.
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        target_compile_options(${target} PRIVATE --param=ggc-min-heapsize=1000000)
    endif()
    # A local name may be that of something in the source before; and a class of a
    # source, which is not the one that is compiled, may have members of a type
    # that is its own.
    target_compile_options(${target} PRIVATE -Wno-shadow
        $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
    if(NOT CMAKE_CXX_CLANG_TIDY)
        return()
    endif()
    # What is compiled lies in the build folder: which checks are meant is told by
    # the folder of the sources, or one above.
    set(folder ${CMAKE_CURRENT_SOURCE_DIR})
    while(NOT EXISTS ${folder}/.clang-tidy)
        cmake_path(GET folder PARENT_PATH folder)
    endwhile()
    set_target_properties(${target} PROPERTIES CXX_CLANG_TIDY
        "${CMAKE_CXX_CLANG_TIDY};--config-file=${folder}/.clang-tidy;--checks=-bugprone-suspicious-include")
endfunction()
