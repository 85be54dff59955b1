# What is installed, and where: headers, libraries, tool, and the files by which
# CMake and pkg-config find them. All paths are relative to the installed files,
# so that the tree can be moved.
include(CMakePackageConfigHelpers)

set(ZELDEBUGDIALOG_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/ZelDebugDialog)

# A library with its headers. `exported` is its name behind ZelDebugDialog::,
# `targets` the file of the package that declares it.
function(zeldebugdialog_install_library target exported targets)
    set_target_properties(${target} PROPERTIES
        EXPORT_NAME ${exported} INSTALL_RPATH "$ORIGIN")
    install(TARGETS ${target} EXPORT ${targets}
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
            COMPONENT ZelDebugDialog_Runtime NAMELINK_COMPONENT ZelDebugDialog_Development
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT ZelDebugDialog_Development)
endfunction()

function(zeldebugdialog_install_headers folder)
    install(DIRECTORY ${folder}/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
        COMPONENT ZelDebugDialog_Development FILES_MATCHING PATTERN "*.h")
endfunction()

function(zeldebugdialog_install_targets targets)
    install(EXPORT ${targets} NAMESPACE ZelDebugDialog::
        DESTINATION ${ZELDEBUGDIALOG_CMAKE_DIR} COMPONENT ZelDebugDialog_Development)
endfunction()

# pkg-config's file `name`.pc. What only static libraries need is given apart.
#
#   zeldebugdialog_install_pkg_config(name description LIBRARIES ... [FLAGS ...]
#       [REQUIRES ...] [STATIC_LIBRARIES ...] [STATIC_REQUIRES ...])
function(zeldebugdialog_install_pkg_config name description)
    cmake_parse_arguments(PARSE_ARGV 2 PC "" ""
        "LIBRARIES;FLAGS;REQUIRES;STATIC_LIBRARIES;STATIC_REQUIRES")
    if(NOT PC_LIBRARIES OR PC_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "${name}.pc: no LIBRARIES, or not known: ${PC_UNPARSED_ARGUMENTS}")
    endif()
    if(ZELDEBUGDIALOG_STATIC)
        list(APPEND PC_REQUIRES ${PC_STATIC_REQUIRES})
        list(APPEND PC_LIBRARIES ${PC_STATIC_LIBRARIES})
    endif()
    foreach(list PC_REQUIRES PC_LIBRARIES PC_FLAGS)
        list(JOIN ${list} " " ${list})
    endforeach()
    file(RELATIVE_PATH prefix_from_here
        ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
    string(REGEX REPLACE "/$" "" prefix_from_here ${prefix_from_here})
    configure_file(${PROJECT_SOURCE_DIR}/cmake/package.pc.in
        ${PROJECT_BINARY_DIR}/${name}.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/${name}.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT ZelDebugDialog_Development)
endfunction()

function(zeldebugdialog_install_engine)
    zeldebugdialog_install_library(ZelDebugDialog ZelDebugDialog ZelDebugDialogTargets)
    zeldebugdialog_install_library(ZelDebugDialogPlatform Platform ZelDebugDialogTargets)
    zeldebugdialog_install_headers(${PROJECT_SOURCE_DIR}/debug_dialog/include)
    zeldebugdialog_install_headers(${PROJECT_BINARY_DIR}/debug_dialog/include)
    if(NOT ZELDEBUGDIALOG_PLATFORM_INCLUDE_DIR)
        zeldebugdialog_install_headers(${PROJECT_SOURCE_DIR}/platform/include)
    endif()
    set(platform_flags "")
    set(platform_libraries "")
    if(ZELDEBUGDIALOG_PLATFORM_INCLUDE_DIR)
        set(platform_flags -I${ZELDEBUGDIALOG_PLATFORM_INCLUDE_DIR})
    endif()
    foreach(library IN LISTS ZELDEBUGDIALOG_PLATFORM_LIBRARIES)
        if(NOT library MATCHES "^(/|-)")
            set(library -l${library})
        endif()
        list(APPEND platform_libraries ${library})
    endforeach()
    if(TARGET ZelDebugDialogMessageOutput)
        zeldebugdialog_install_library(ZelDebugDialogMessageOutput MessageOutput
            ZelDebugDialogTargets)
        set(platform_libraries -lZelDebugDialogMessageOutput)
    endif()
    zeldebugdialog_install_targets(ZelDebugDialogTargets)
    zeldebugdialog_install_pkg_config(zeldebugdialog "${PROJECT_DESCRIPTION}"
        LIBRARIES -lZelDebugDialog ${platform_libraries}
        FLAGS ${platform_flags}
        STATIC_LIBRARIES -lboost_filesystem -lstdc++)
endfunction()

function(zeldebugdialog_install_design_model)
    zeldebugdialog_install_library(ZelDebugDialogDesignModel DesignModel
        ZelDebugDialogDesignModelTargets)
    zeldebugdialog_install_headers(${PROJECT_SOURCE_DIR}/design_model/include)
    zeldebugdialog_install_targets(ZelDebugDialogDesignModelTargets)
    zeldebugdialog_install_pkg_config(zeldebugdialog-design-model
        "IP-XACT designs for ZelDebugDialog"
        LIBRARIES -lZelDebugDialogDesignModel
        REQUIRES zeldebugdialog
        STATIC_REQUIRES pugixml
        STATIC_LIBRARIES -lstdc++)
endfunction()

function(zeldebugdialog_install_configuration_model)
    zeldebugdialog_install_library(ZelDebugDialogConfigurationModel ConfigurationModel
        ZelDebugDialogConfigurationModelTargets)
    zeldebugdialog_install_headers(${PROJECT_SOURCE_DIR}/configuration_model/include)
    zeldebugdialog_install_targets(ZelDebugDialogConfigurationModelTargets)
    zeldebugdialog_install_pkg_config(zeldebugdialog-configuration-model
        "What stands between ZelDebugDialog's engine and people"
        LIBRARIES -lZelDebugDialogConfigurationModel
        REQUIRES zeldebugdialog
        STATIC_REQUIRES fmt
        STATIC_LIBRARIES -lstdc++)
endfunction()

function(zeldebugdialog_install_project_file)
    zeldebugdialog_install_library(ZelDebugDialogProjectFile ProjectFile
        ZelDebugDialogProjectFileTargets)
    zeldebugdialog_install_headers(${PROJECT_SOURCE_DIR}/project_file/include)
    zeldebugdialog_install_targets(ZelDebugDialogProjectFileTargets)
    zeldebugdialog_install_pkg_config(zeldebugdialog-project-file
        "A project's debug configuration in one file"
        LIBRARIES -lZelDebugDialogProjectFile
        REQUIRES zeldebugdialog-configuration-model
        STATIC_REQUIRES fmt tomlplusplus
        STATIC_LIBRARIES -lstdc++)
endfunction()

function(zeldebugdialog_install_c_interface)
    zeldebugdialog_install_library(ZelDebugDialogC C ZelDebugDialogCTargets)
    zeldebugdialog_install_headers(${PROJECT_SOURCE_DIR}/c_interface/include)
    zeldebugdialog_install_targets(ZelDebugDialogCTargets)
    set(project_file "")
    if(ZELDEBUGDIALOG_PROJECT_FILE)
        set(project_file zeldebugdialog-project-file)
    endif()
    zeldebugdialog_install_pkg_config(zeldebugdialog-c
        "ZelDebugDialog for every language that can call C"
        LIBRARIES -lzeldebugdialog-c
        STATIC_REQUIRES ${project_file}
            zeldebugdialog-configuration-model zeldebugdialog-design-model
        STATIC_LIBRARIES -lstdc++ -lm)
endfunction()

function(zeldebugdialog_install_tool)
    file(RELATIVE_PATH libraries_from_here
        ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
    set_target_properties(zeldebug PROPERTIES INSTALL_RPATH "$ORIGIN/${libraries_from_here}")
    install(TARGETS zeldebug RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
        COMPONENT ZelDebugDialog_Tool)
    get_target_property(tool_folder zeldebug BINARY_DIR)
    foreach(row
            "zeldebug.1 ${CMAKE_INSTALL_MANDIR}/man1 zeldebug.1"
            "completion.bash ${CMAKE_INSTALL_DATADIR}/bash-completion/completions zeldebug"
            "completion.zsh ${CMAKE_INSTALL_DATADIR}/zsh/site-functions _zeldebug"
            "completion.fish ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d zeldebug.fish")
        separate_arguments(row)
        list(GET row 0 document)
        list(GET row 1 folder)
        list(GET row 2 name)
        install(FILES ${tool_folder}/generated/${document} DESTINATION ${folder} RENAME ${name}
            COMPONENT ZelDebugDialog_Tool)
    endforeach()
endfunction()

# The program stands alone; the library is for programs that embed its pages.
function(zeldebugdialog_install_dialog)
    install(TARGETS zeldebug-dialog RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
        COMPONENT ZelDebugDialog_Dialog)
    install(FILES ${PROJECT_SOURCE_DIR}/dialog/zeldebug-dialog.1
        DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT ZelDebugDialog_Dialog)
    file(RELATIVE_PATH libraries_from_here
        ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
    set_target_properties(zeldebug-dialog PROPERTIES
        INSTALL_RPATH "$ORIGIN/${libraries_from_here}")
    set_target_properties(ZelDebugDialogDialog PROPERTIES
        EXPORT_NAME Dialog INSTALL_RPATH "$ORIGIN")
    install(TARGETS ZelDebugDialogDialog EXPORT ZelDebugDialogDialogTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT ZelDebugDialog_DialogLibrary
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT ZelDebugDialog_DialogLibrary)
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/dialog/include/
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
        COMPONENT ZelDebugDialog_DialogLibrary FILES_MATCHING PATTERN "*.h")
    install(EXPORT ZelDebugDialogDialogTargets NAMESPACE ZelDebugDialog::
        DESTINATION ${ZELDEBUGDIALOG_CMAKE_DIR} COMPONENT ZelDebugDialog_DialogLibrary)
endfunction()

# The pages, with what they lead to: schemas, pictures, and the examples. They
# keep their places towards each other.
function(zeldebugdialog_install_documentation)
    install(DIRECTORY docs examples DESTINATION ${CMAKE_INSTALL_DOCDIR}
        COMPONENT ZelDebugDialog_Documentation
        PATTERN site EXCLUDE PATTERN "*.dot" EXCLUDE PATTERN __pycache__ EXCLUDE)
    install(FILES README.md CHANGELOG.md CONTRIBUTING.md DESTINATION ${CMAKE_INSTALL_DOCDIR}
        COMPONENT ZelDebugDialog_Documentation)
endfunction()

function(zeldebugdialog_install_package)
    zeldebugdialog_install_engine()
    if(ZELDEBUGDIALOG_DESIGN_MODEL)
        zeldebugdialog_install_design_model()
    endif()
    if(ZELDEBUGDIALOG_CONFIGURATION_MODEL)
        zeldebugdialog_install_configuration_model()
    endif()
    if(ZELDEBUGDIALOG_PROJECT_FILE)
        zeldebugdialog_install_project_file()
    endif()
    if(ZELDEBUGDIALOG_C_INTERFACE)
        zeldebugdialog_install_c_interface()
    endif()
    if(ZELDEBUGDIALOG_TOOL)
        zeldebugdialog_install_tool()
    endif()
    if(ZELDEBUGDIALOG_HAS_DIALOG)
        zeldebugdialog_install_dialog()
    endif()
    zeldebugdialog_install_documentation()

    configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/ZelDebugDialogConfig.cmake.in
        ${PROJECT_BINARY_DIR}/ZelDebugDialogConfig.cmake
        INSTALL_DESTINATION ${ZELDEBUGDIALOG_CMAKE_DIR}
        NO_SET_AND_CHECK_MACRO)
    write_basic_package_version_file(${PROJECT_BINARY_DIR}/ZelDebugDialogConfigVersion.cmake
        COMPATIBILITY SameMajorVersion)
    install(FILES
        ${PROJECT_BINARY_DIR}/ZelDebugDialogConfig.cmake
        ${PROJECT_BINARY_DIR}/ZelDebugDialogConfigVersion.cmake
        DESTINATION ${ZELDEBUGDIALOG_CMAKE_DIR} COMPONENT ZelDebugDialog_Development)
endfunction()
