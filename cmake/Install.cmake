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

# pkg-config's file `name`.pc for the libraries in `linked`. What static
# libraries need besides, in `packages` and `libraries`, counts only for them.
function(zeldebugdialog_install_pkg_config name description linked packages libraries)
    file(RELATIVE_PATH prefix_from_here
        ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
    string(REGEX REPLACE "/$" "" prefix_from_here ${prefix_from_here})
    if(NOT ZELDEBUGDIALOG_STATIC)
        set(packages "")
        set(libraries "")
    endif()
    configure_file(${PROJECT_SOURCE_DIR}/cmake/package.pc.in
        ${PROJECT_BINARY_DIR}/${name}.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/${name}.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT ZelDebugDialog_Development)
endfunction()

function(zeldebugdialog_install_engine)
    zeldebugdialog_install_library(ZelDebugDialog ZelDebugDialog ZelDebugDialogTargets)
    zeldebugdialog_install_library(ZelDebugDialogPlatform Platform ZelDebugDialogTargets)
    zeldebugdialog_install_headers(${PROJECT_SOURCE_DIR}/debug_dialog/include)
    if(NOT ZELDEBUGDIALOG_PLATFORM_INCLUDE_DIR)
        zeldebugdialog_install_headers(${PROJECT_SOURCE_DIR}/platform/include)
    endif()
    set(linked -lZelDebugDialog)
    if(TARGET ZelDebugDialogMessageOutput)
        zeldebugdialog_install_library(ZelDebugDialogMessageOutput MessageOutput
            ZelDebugDialogTargets)
        list(APPEND linked -lZelDebugDialogMessageOutput)
    endif()
    zeldebugdialog_install_targets(ZelDebugDialogTargets)
    list(JOIN linked " " linked)
    zeldebugdialog_install_pkg_config(zeldebugdialog "${PROJECT_DESCRIPTION}"
        "${linked}" "" "-lboost_filesystem -lstdc++")
endfunction()

function(zeldebugdialog_install_design_model)
    zeldebugdialog_install_library(ZelDebugDialogDesignModel DesignModel
        ZelDebugDialogDesignModelTargets)
    zeldebugdialog_install_headers(${PROJECT_SOURCE_DIR}/design_model/include)
    zeldebugdialog_install_targets(ZelDebugDialogDesignModelTargets)
    zeldebugdialog_install_pkg_config(zeldebugdialog-design-model
        "IP-XACT designs for ZelDebugDialog" -lZelDebugDialogDesignModel pugixml -lstdc++)
endfunction()

# The file `destination`: what the tool prints when it is called with the
# arguments behind.
function(zeldebugdialog_install_tool_text destination)
    string(MAKE_C_IDENTIFIER "zeldebug ${ARGN}" target)
    cmake_path(GET destination FILENAME name)
    cmake_path(GET destination PARENT_PATH folder)
    set(output ${PROJECT_BINARY_DIR}/${target}/${name})
    add_custom_command(OUTPUT ${output}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${PROJECT_BINARY_DIR}/${target}
        COMMAND zeldebug ${ARGN} > ${output})
    add_custom_target(${target} ALL DEPENDS ${output})
    install(FILES ${output} DESTINATION ${folder} COMPONENT ZelDebugDialog_Tool)
endfunction()

function(zeldebugdialog_install_tool)
    file(RELATIVE_PATH libraries_from_here
        ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
    set_target_properties(zeldebug PROPERTIES INSTALL_RPATH "$ORIGIN/${libraries_from_here}")
    install(TARGETS zeldebug RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
        COMPONENT ZelDebugDialog_Tool)
    zeldebugdialog_install_tool_text(${CMAKE_INSTALL_MANDIR}/man1/zeldebug.1 manual)
    set(share ${CMAKE_INSTALL_DATADIR})
    zeldebugdialog_install_tool_text(${share}/bash-completion/completions/zeldebug completion bash)
    zeldebugdialog_install_tool_text(${share}/zsh/site-functions/_zeldebug completion zsh)
    zeldebugdialog_install_tool_text(${share}/fish/vendor_completions.d/zeldebug.fish completion fish)
endfunction()

function(zeldebugdialog_install_package)
    zeldebugdialog_install_engine()
    if(ZELDEBUGDIALOG_DESIGN_MODEL)
        zeldebugdialog_install_design_model()
    endif()
    if(ZELDEBUGDIALOG_TOOL)
        zeldebugdialog_install_tool()
    endif()

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
