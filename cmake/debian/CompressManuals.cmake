# Run by cpack between staging and packing.
file(GLOB manuals ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*/usr/share/man/man*/*.[1-9])
foreach(manual ${manuals})
    execute_process(COMMAND gzip -9n ${manual} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
