# Fails where the project changed the one that took it in.
foreach(variable
        BUILD_SHARED_LIBS BUILD_TESTING
        CMAKE_RUNTIME_OUTPUT_DIRECTORY CMAKE_LIBRARY_OUTPUT_DIRECTORY)
    if(DEFINED ${variable})
        message(FATAL_ERROR "${variable} became ${${variable}}")
    endif()
endforeach()
foreach(target zeldebug test)
    if(TARGET ${target})
        message(FATAL_ERROR "target ${target} came in")
    endif()
endforeach()

# Ours would stop at this: a sign and a width are lost in silence.
file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/careless.cpp
    "short narrow(unsigned long wide) { int unused = 1; return wide; }\n")
add_library(careless OBJECT ${CMAKE_CURRENT_BINARY_DIR}/careless.cpp)
target_link_libraries(careless PRIVATE ZelDebugDialog::ZelDebugDialog)
