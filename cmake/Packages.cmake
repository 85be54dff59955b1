# The Debian packages that `cpack` makes of an installed tree (docs/packaging.md).
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zeldebugdialog)
set(CPACK_PACKAGE_VENDOR "the ZelDebugDialog project")
set(CPACK_PACKAGE_CONTACT "ZelDebugDialog maintainers <maintainers@zeldebugdialog.invalid>")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_STRIP_FILES ON)
set(components Runtime Development Tool)
if(ZELDEBUGDIALOG_HAS_DIALOG)
    list(APPEND components Dialog)
endif()
if(ZELDEBUGDIALOG_C_INTERFACE)
    list(APPEND components Python)
endif()
set(CPACK_COMPONENTS_ALL ${components})
list(TRANSFORM CPACK_COMPONENTS_ALL PREPEND ZelDebugDialog_)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(runtime libzeldebugdialog${PROJECT_VERSION_MAJOR})
set(same_version "(= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")

# The tool's libraries are those of this build, which no package provides yet.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})

set(CPACK_DEBIAN_ZELDEBUGDIALOG_RUNTIME_PACKAGE_NAME ${runtime})
set(CPACK_DEBIAN_ZELDEBUGDIALOG_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_ZELDEBUGDIALOG_RUNTIME_PACKAGE_CONTROL_EXTRA
    ${PROJECT_SOURCE_DIR}/cmake/debian/triggers)
set(CPACK_COMPONENT_ZELDEBUGDIALOG_RUNTIME_DESCRIPTION
    "debug-target configurations for FPGA processors - libraries
 The engine behind a debug-configuration dialog: sets, checks and reads the
 configuration of a debug target, and translates it to and from the connect
 command of the target debugger. With the design model, which answers the
 engine's questions from IP-XACT designs, the configuration model, which lets
 people change configurations without losing anything, and the project file, by
 which a team shares them.")

set(CPACK_DEBIAN_ZELDEBUGDIALOG_DEVELOPMENT_PACKAGE_NAME libzeldebugdialog-dev)
set(CPACK_DEBIAN_ZELDEBUGDIALOG_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_ZELDEBUGDIALOG_DEVELOPMENT_PACKAGE_DEPENDS "${runtime} ${same_version}")
set(CPACK_COMPONENT_ZELDEBUGDIALOG_DEVELOPMENT_DESCRIPTION
    "debug-target configurations for FPGA processors - development files
 Headers, CMake package and pkg-config files of ZelDebugDialog.")

set(CPACK_DEBIAN_ZELDEBUGDIALOG_TOOL_PACKAGE_NAME zeldebug)
set(CPACK_DEBIAN_ZELDEBUGDIALOG_TOOL_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_ZELDEBUGDIALOG_TOOL_PACKAGE_DEPENDS "${runtime} ${same_version}")
set(CPACK_COMPONENT_ZELDEBUGDIALOG_TOOL_DESCRIPTION
    "debug-target configurations for FPGA processors - command line tool
 Lists the processors of an IP-XACT design and reads, checks, changes and saves
 the connect command of each.")

# The program alone: whoever embeds its pages builds them.
set(CPACK_DEBIAN_ZELDEBUGDIALOG_DIALOG_PACKAGE_NAME zeldebug-dialog)
set(CPACK_DEBIAN_ZELDEBUGDIALOG_DIALOG_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_ZELDEBUGDIALOG_DIALOG_PACKAGE_DEPENDS "${runtime} ${same_version}")
set(CPACK_COMPONENT_ZELDEBUGDIALOG_DIALOG_DESCRIPTION
    "debug-target configurations for FPGA processors - dialog
 Shows the processors of an IP-XACT design in a window, and lets people change
 the configuration of each, with reasons and without losing anything.")

# Of no architecture: it loads the library of the one that it runs on. It is for
# Debian's own Python; a wheel (scripts/python-wheel) is for every other.
set(CPACK_DEBIAN_ZELDEBUGDIALOG_PYTHON_PACKAGE_NAME python3-zeldebugdialog)
set(CPACK_DEBIAN_ZELDEBUGDIALOG_PYTHON_PACKAGE_SECTION python)
set(CPACK_DEBIAN_ZELDEBUGDIALOG_PYTHON_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_ZELDEBUGDIALOG_PYTHON_PACKAGE_DEPENDS
    "python3 (>= 3.11), ${runtime} ${same_version}")
set(CPACK_DEBIAN_ZELDEBUGDIALOG_PYTHON_PACKAGE_CONTROL_EXTRA
    ${PROJECT_SOURCE_DIR}/cmake/debian/python/postinst
    ${PROJECT_SOURCE_DIR}/cmake/debian/python/prerm)
set(CPACK_COMPONENT_ZELDEBUGDIALOG_PYTHON_DESCRIPTION
    "debug-target configurations for FPGA processors - Python package
 Boards, and the configurations of their processors, as objects: settings are
 attributes, the JTAG chain is a list, and what is refused is an exception that
 says why.")
if(ZELDEBUGDIALOG_C_INTERFACE)
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/python/zeldebugdialog
        DESTINATION lib/python3/dist-packages
        COMPONENT ZelDebugDialog_Python EXCLUDE_FROM_ALL
        FILES_MATCHING PATTERN "*.py" PATTERN "py.typed" PATTERN "__pycache__" EXCLUDE)
endif()

# What Debian asks of every package: a change log and a notice of its licence;
# and what lintian need not say, with the reasons. Manual pages are compressed.
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/debian/CompressManuals.cmake)
string(TIMESTAMP release_date "%a, %d %b %Y %H:%M:%S +0000" UTC)
set(notes ${PROJECT_BINARY_DIR}/debian)
configure_file(${PROJECT_SOURCE_DIR}/cmake/debian/changelog.in ${notes}/changelog @ONLY)
file(ARCHIVE_CREATE OUTPUT ${notes}/changelog.Debian.gz PATHS ${notes}/changelog
    FORMAT raw COMPRESSION GZip COMPRESSION_LEVEL 9 MTIME "1970-01-01")
foreach(component ${components})
    string(TOUPPER ZelDebugDialog_${component} key)
    install(FILES ${notes}/changelog.Debian.gz ${PROJECT_SOURCE_DIR}/cmake/debian/copyright
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${CPACK_DEBIAN_${key}_PACKAGE_NAME}
        COMPONENT ZelDebugDialog_${component} EXCLUDE_FROM_ALL)
    install(FILES ${PROJECT_SOURCE_DIR}/cmake/debian/lintian-overrides
        DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides
        RENAME ${CPACK_DEBIAN_${key}_PACKAGE_NAME}
        COMPONENT ZelDebugDialog_${component} EXCLUDE_FROM_ALL)
endforeach()

include(CPack)
