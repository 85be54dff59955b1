# Each fuzzer: its sources, and what it is linked with. The fuzzers themselves
# are made of them (CMakeLists.txt), and so are the tests that replay the inputs
# that are kept (tests/fuzz).
find_package(Boost 1.74 REQUIRED COMPONENTS filesystem)

set(fuzz_folder ${PROJECT_SOURCE_DIR}/fuzz)
set(fuzz_engine_libraries FuzzCommon TestSupport ZelDebugDialogCore Boost::filesystem)

add_library(FuzzCommon STATIC
    ${fuzz_folder}/common/Bytes.cpp
    ${fuzz_folder}/common/Reading.cpp
    ${fuzz_folder}/common/Require.cpp
    ${fuzz_folder}/common/ScratchFolder.cpp
    ${fuzz_folder}/common/TracedValues.cpp)
zeldebugdialog_build_options(FuzzCommon)
target_include_directories(FuzzCommon
    PUBLIC ${fuzz_folder}
    PRIVATE
        $<TARGET_PROPERTY:ZelDebugDialogCore,INTERFACE_INCLUDE_DIRECTORIES>
        $<TARGET_PROPERTY:ZelDebugDialogPlatform,INTERFACE_INCLUDE_DIRECTORIES>)
target_link_libraries(FuzzCommon PUBLIC TestSupport)

set(fuzzers command option_file cable_clauses operations)

set(fuzz_command_sources
    ${fuzz_folder}/fuzz_command.cpp
    ${fuzz_folder}/command/KnownWords.cpp
    ${fuzz_folder}/command/PublicReaders.cpp)
set(fuzz_command_libraries ${fuzz_engine_libraries})

set(fuzz_option_file_sources ${fuzz_folder}/fuzz_option_file.cpp)
set(fuzz_option_file_libraries ${fuzz_engine_libraries})

set(fuzz_cable_clauses_sources
    ${fuzz_folder}/fuzz_cable_clauses.cpp
    ${fuzz_folder}/command/KnownWords.cpp
    ${fuzz_folder}/command/PublicReaders.cpp)
set(fuzz_cable_clauses_libraries ${fuzz_engine_libraries})

set(fuzz_operations_sources
    ${fuzz_folder}/fuzz_operations.cpp
    ${fuzz_folder}/operations/AnsweredDesign.cpp
    ${fuzz_folder}/operations/CableOperations.cpp
    ${fuzz_folder}/operations/Model.cpp
    ${fuzz_folder}/operations/SelectionOperations.cpp
    ${fuzz_folder}/operations/Session.cpp
    ${fuzz_folder}/operations/TargetOperations.cpp
    ${PROJECT_SOURCE_DIR}/tests/support/MessageLog.cpp)
set(fuzz_operations_libraries ${fuzz_engine_libraries})

if(ZELDEBUGDIALOG_DESIGN_MODEL)
    list(APPEND fuzzers documents)
    set(fuzz_documents_sources
        ${fuzz_folder}/fuzz_documents.cpp
        ${PROJECT_SOURCE_DIR}/tests/design_model/MemorySource.cpp)
    set(fuzz_documents_includes
        ${PROJECT_SOURCE_DIR}/design_model/src ${PROJECT_SOURCE_DIR}/tests)
    set(fuzz_documents_libraries DesignModelCore)
endif()

if(ZELDEBUGDIALOG_CONFIGURATION_MODEL)
    find_package(fmt 9 REQUIRED)
    list(APPEND fuzzers session)
    set(fuzz_session_sources ${fuzz_folder}/fuzz_session.cpp)
    set(fuzz_session_libraries ConfigurationModelCore ${fuzz_engine_libraries} fmt::fmt)
endif()

if(ZELDEBUGDIALOG_PROJECT_FILE)
    find_package(fmt 9 REQUIRED)
    find_package(tomlplusplus 3.3 REQUIRED)
    list(APPEND fuzzers project)
    set(fuzz_project_sources ${fuzz_folder}/fuzz_project.cpp)
    set(fuzz_project_libraries ProjectFileCore ConfigurationModelCore
        ${fuzz_engine_libraries} fmt::fmt tomlplusplus::tomlplusplus)
endif()

if(TARGET ProtocolPipe)
    find_package(nlohmann_json 3.11 REQUIRED)
    list(APPEND fuzzers frames requests)
    set(fuzz_frames_sources ${fuzz_folder}/fuzz_frames.cpp)
    set(fuzz_frames_libraries FuzzCommon ProtocolPipe ProtocolCore)
    set(fuzz_requests_sources ${fuzz_folder}/fuzz_requests.cpp)
    set(fuzz_requests_definitions BOARD_FOLDER="${PROJECT_SOURCE_DIR}/examples/board")
    set(fuzz_requests_libraries FuzzCommon ProtocolCore)
endif()

if(ZELDEBUGDIALOG_TOOL)
    find_package(CLI11 2.1 REQUIRED)
    find_package(fmt 9 REQUIRED)
    find_package(nlohmann_json 3.11 REQUIRED)
    list(APPEND fuzzers arguments)
    set(fuzz_arguments_sources ${fuzz_folder}/fuzz_arguments.cpp
        $<FILTER:$<TARGET_OBJECTS:zeldebug>,EXCLUDE,main.cpp>)
    set(fuzz_arguments_includes ${PROJECT_SOURCE_DIR}/zeldebug/src)
    set(fuzz_arguments_definitions BOARD_FOLDER="${PROJECT_SOURCE_DIR}/examples/board")
    set(fuzz_arguments_libraries FuzzCommon ZelDebugDialog::ZelDebugDialog
        $<TARGET_PROPERTY:zeldebug,LINK_LIBRARIES>
        -Wl,--wrap=write)
endif()
