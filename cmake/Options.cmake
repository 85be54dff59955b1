# Every switch of the build. A project that takes this one in as a folder gets
# the libraries alone: no tool, no tests, no install rules, no strict warnings.
include(CMakeDependentOption)

set(ZELDEBUGDIALOG_PLATFORM_INCLUDE_DIR "" CACHE PATH
    "Folder of a vendor's HHSMHwManager.h and ComMsgMgr.h; empty: those of this project")
set(ZELDEBUGDIALOG_PLATFORM_LIBRARIES "" CACHE STRING
    "A vendor's libraries that answer the design queries and define message output; empty: the message output of this project")

# Files may be named as seen from where cmake is called; a folder in the cache is
# made absolute by CMake itself, a list is not.
set(platform_libraries "")
foreach(library IN LISTS ZELDEBUGDIALOG_PLATFORM_LIBRARIES)
    if(library MATCHES "/" AND NOT library MATCHES "^(/|-)")
        get_filename_component(library ${library} ABSOLUTE BASE_DIR $ENV{PWD})
    endif()
    list(APPEND platform_libraries ${library})
endforeach()
set_property(CACHE ZELDEBUGDIALOG_PLATFORM_LIBRARIES PROPERTY VALUE "${platform_libraries}")

# BUILD_SHARED_LIBS decides where it is set. Otherwise shared; static inside
# another project, whose installed programs would lack the libraries.
set(static_default ON)
if(BUILD_SHARED_LIBS OR (PROJECT_IS_TOP_LEVEL AND NOT DEFINED BUILD_SHARED_LIBS))
    set(static_default OFF)
endif()
option(ZELDEBUGDIALOG_STATIC "Static libraries in place of shared ones" ${static_default})
if(ZELDEBUGDIALOG_STATIC)
    set(ZELDEBUGDIALOG_LIBRARY_TYPE STATIC)
else()
    set(ZELDEBUGDIALOG_LIBRARY_TYPE SHARED)
endif()

# The design model derives from our HHSMHwManager; a vendor's need not be an
# abstract class.
cmake_dependent_option(ZELDEBUGDIALOG_DESIGN_MODEL "The design model"
    ON "NOT ZELDEBUGDIALOG_PLATFORM_INCLUDE_DIR" OFF)
option(ZELDEBUGDIALOG_CONFIGURATION_MODEL "The configuration model" ON)
cmake_dependent_option(ZELDEBUGDIALOG_PROJECT_FILE "The project file"
    ON "ZELDEBUGDIALOG_CONFIGURATION_MODEL" OFF)
# What the line asks for is not left out in silence; its options have no type yet.
if(NOT ZELDEBUGDIALOG_DESIGN_MODEL OR NOT ZELDEBUGDIALOG_PROJECT_FILE)
    get_property(type_of_tool CACHE ZELDEBUGDIALOG_TOOL PROPERTY TYPE)
    if(ZELDEBUGDIALOG_TOOL AND type_of_tool STREQUAL UNINITIALIZED)
        message(FATAL_ERROR "The tool needs the design model and the project file")
    endif()
    if(PROJECT_IS_TOP_LEVEL AND (ZELDEBUGDIALOG_TOOL OR NOT DEFINED ZELDEBUGDIALOG_TOOL))
        message(STATUS
            "The tool is left out: it needs the design model and the project file")
    endif()
endif()
cmake_dependent_option(ZELDEBUGDIALOG_TOOL "The command line tool"
    ${PROJECT_IS_TOP_LEVEL}
    "ZELDEBUGDIALOG_DESIGN_MODEL;ZELDEBUGDIALOG_PROJECT_FILE" OFF)
cmake_dependent_option(ZELDEBUGDIALOG_C_INTERFACE "The C interface"
    ${PROJECT_IS_TOP_LEVEL}
    "ZELDEBUGDIALOG_DESIGN_MODEL;ZELDEBUGDIALOG_CONFIGURATION_MODEL" OFF)
# AUTO: where Qt is there. A project that takes this one in asks for it.
set(dialog_default OFF)
if(PROJECT_IS_TOP_LEVEL)
    set(dialog_default AUTO)
endif()
set(ZELDEBUGDIALOG_DIALOG ${dialog_default} CACHE STRING
    "The dialog, with Qt 6: ON, OFF, or AUTO for where Qt is there")
set_property(CACHE ZELDEBUGDIALOG_DIALOG PROPERTY STRINGS AUTO ON OFF)
option(ZELDEBUGDIALOG_INSTALL "Install rules" ${PROJECT_IS_TOP_LEVEL})

option(ZELDEBUGDIALOG_DEVELOPER "Strict warnings, as errors" OFF)
option(ZELDEBUGDIALOG_BENCH "Build the benchmarks" OFF)
option(ZELDEBUGDIALOG_FUZZ "Build the fuzzers" OFF)
set(ZELDEBUGDIALOG_COVERAGE "" CACHE STRING
    "Folders whose lines and branches are counted as they run; empty: none")
set(ZELDEBUGDIALOG_SANITIZERS "" CACHE STRING "Sanitizers to build with, comma-separated")
set(ZELDEBUGDIALOG_IPXACT_LIBRARIES "" CACHE PATH
    "Folder of IP-XACT libraries by others that the tests read; empty: none")
set(ZELDEBUGDIALOG_IPXACT_SCHEMAS "" CACHE PATH
    "Folder of the IP-XACT standard's schemas, an edition a folder, that the tests check documents against; empty: none")

# Whether to build the dialog: `result` in the caller.
function(zeldebugdialog_find_dialog result)
    set(${result} OFF PARENT_SCOPE)
    if(NOT ZELDEBUGDIALOG_DIALOG)
        return()
    endif()
    if(NOT ZELDEBUGDIALOG_DESIGN_MODEL OR NOT ZELDEBUGDIALOG_PROJECT_FILE)
        if(NOT ZELDEBUGDIALOG_DIALOG STREQUAL AUTO)
            message(FATAL_ERROR "The dialog needs the design model and the project file")
        endif()
        return()
    endif()
    set(how REQUIRED)
    if(ZELDEBUGDIALOG_DIALOG STREQUAL AUTO)
        set(how QUIET)
    endif()
    find_package(Qt6 6.4 ${how} COMPONENTS Widgets LinguistTools)
    if(Qt6_FOUND)
        set(${result} ON PARENT_SCOPE)
    endif()
endfunction()
