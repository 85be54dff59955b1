include(${CMAKE_CURRENT_LIST_DIR}/Unity.cmake)

# How our own targets are compiled. Private to them: nothing of it reaches a
# project that uses the libraries.
function(zeldebugdialog_build_options target)
    set(standard 17)
    if(CMAKE_CXX_STANDARD GREATER 17)
        set(standard ${CMAKE_CXX_STANDARD})
    endif()
    set_target_properties(${target} PROPERTIES
        CXX_STANDARD ${standard} CXX_STANDARD_REQUIRED ON CXX_EXTENSIONS OFF
        POSITION_INDEPENDENT_CODE ON)
    if(ZELDEBUGDIALOG_DEVELOPER)
        target_compile_options(${target} PRIVATE
            -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
    endif()
    if(ZELDEBUGDIALOG_SANITIZERS)
        target_compile_options(${target} PRIVATE
            -fsanitize=${ZELDEBUGDIALOG_SANITIZERS} -fno-sanitize-recover=all
            -fno-omit-frame-pointer)
        target_link_options(${target} PRIVATE -fsanitize=${ZELDEBUGDIALOG_SANITIZERS})
    endif()
    if(ZELDEBUGDIALOG_COVERAGE)
        cmake_path(RELATIVE_PATH CMAKE_CURRENT_SOURCE_DIR
            BASE_DIRECTORY ${PROJECT_SOURCE_DIR} OUTPUT_VARIABLE folder)
        if(folder IN_LIST ZELDEBUGDIALOG_COVERAGE)
            target_compile_options(${target} PRIVATE --coverage -fprofile-update=atomic)
        endif()
        target_link_options(${target} PRIVATE --coverage)
    endif()
    if(CMAKE_UNITY_BUILD)
        zeldebugdialog_unity_options(${target})
    endif()
endfunction()
