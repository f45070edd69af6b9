# SPDX-License-Identifier: MIT

# What every target of the project shares.

if(VANTU_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()

# Warnings are errors where developers look at them; a packager's newer compiler stops no build. Headers of packages are
# system headers.
if(CMAKE_BUILD_TYPE STREQUAL Debug)
    option(VANTU_WARNINGS_ARE_ERRORS "Stop the build at a warning" ON)
else()
    option(VANTU_WARNINGS_ARE_ERRORS "Stop the build at a warning" OFF)
endif()
function(vantu_target target)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic $<$<BOOL:${VANTU_WARNINGS_ARE_ERRORS}>:-Werror>
        # Qt's own macros take no argument for "...".
        $<$<COMPILE_LANG_AND_ID:CXX,Clang>:-Wno-gnu-zero-variadic-macro-arguments>)
endfunction()

# A target on Qt: the meta-object compiler, and no silent crossing between bytes and text.
function(vantu_qt_target target)
    vantu_target(${target})
    set_target_properties(${target} PROPERTIES AUTOMOC ON)
    target_compile_definitions(${target} PRIVATE
        QT_DEPRECATED_WARNINGS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING)
endfunction()

# The same for what the companion is made of. It throws no exceptions: without what they need to pass through, the
# optimised program is a sixth smaller.
function(vantu_companion_target target)
    vantu_qt_target(${target})
    target_compile_options(${target} PRIVATE $<$<CONFIG:MinSizeRel>:-fno-exceptions;-fno-asynchronous-unwind-tables>)
endfunction()

# What is fixed when the companion is built, as an object file that each executable picks, so that one build tree holds
# companions of several services.
#   vantu_deployment(name SERVICE_ROOT LOGIN_FILE)
function(vantu_deployment name service_root login_file)
    add_library(${name} OBJECT ${PROJECT_SOURCE_DIR}/source/deployment.cpp)
    vantu_companion_target(${name})
    target_compile_definitions(${name} PRIVATE VANTU_SERVICE_ROOT="${service_root}" VANTU_LOGIN_FILE="${login_file}")
    target_link_libraries(${name} PUBLIC vantu_rules)
endfunction()

# One Qt Test executable. Runs in an empty folder of its own, offscreen, so that tests can run side by side and
# whatever a test writes under a relative name (the login file) is its own.
#   vantu_qt_test(tst_name SOURCES file.cpp ... LIBRARIES library ... [DBUS|DISPLAY])
# DBUS gives the test a private session bus, DISPLAY also an X display and the bus of screen readers.
function(vantu_qt_test name)
    cmake_parse_arguments(TEST "DBUS;DISPLAY" "" "SOURCES;LIBRARIES" ${ARGN})
    add_executable(${name} ${TEST_SOURCES})
    vantu_qt_target(${name})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests/support)
    target_link_libraries(${name} PRIVATE ${TEST_LIBRARIES} Qt${VANTU_QT}::Test)
    set(folder ${CMAKE_CURRENT_BINARY_DIR}/${name}.run)
    file(MAKE_DIRECTORY ${folder})
    if(TEST_DISPLAY)
        add_test(NAME ${name} WORKING_DIRECTORY ${folder}
            COMMAND dbus-run-session -- ${PROJECT_SOURCE_DIR}/tests/support/on-display $<TARGET_FILE:${name}>)
    elseif(TEST_DBUS)
        add_test(NAME ${name} COMMAND dbus-run-session -- $<TARGET_FILE:${name}> WORKING_DIRECTORY ${folder})
    else()
        add_test(NAME ${name} COMMAND ${name} WORKING_DIRECTORY ${folder})
    endif()
    set_tests_properties(${name} PROPERTIES TIMEOUT 120 ENVIRONMENT
        "QT_QPA_PLATFORM=offscreen;LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/lsan.supp:print_suppressions=0;ASAN_OPTIONS=detect_stack_use_after_return=0;UBSAN_OPTIONS=print_stacktrace=1")
endfunction()
