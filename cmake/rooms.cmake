# One target per room of the house. A room's sources live in src/<room>, are listed and not globbed,
# and link exactly the rooms and libraries that the room may see.

find_package(Threads REQUIRED)

add_library(zyn_options INTERFACE)
target_include_directories(zyn_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_compile_options(zyn_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # GCC 12 sees an overlap in `"text" + string` where there is none (its bug 105651).
    target_compile_options(zyn_options INTERFACE -fpch-preprocess -Wno-restrict)
endif()
target_link_libraries(zyn_options INTERFACE Threads::Threads)
if(ZYN_SANITIZE)
    target_compile_options(zyn_options INTERFACE
        -fsanitize=${ZYN_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(zyn_options INTERFACE -fsanitize=${ZYN_SANITIZE})
endif()
if(ZYN_FUZZ)
    target_compile_options(zyn_options INTERFACE -fsanitize=fuzzer-no-link)
    target_include_directories(zyn_options SYSTEM BEFORE INTERFACE
        ${PROJECT_SOURCE_DIR}/scripts/lint-include)
endif()

# zyn_room(name SOURCES file... LINKS target... PRIVATE_LINKS target... PRECOMPILE header...)
function(zyn_room name)
    cmake_parse_arguments(ROOM "" "" "SOURCES;LINKS;PRIVATE_LINKS;PRECOMPILE" ${ARGN})
    if(ROOM_SOURCES)
        add_library(${name} STATIC ${ROOM_SOURCES})
        target_link_libraries(${name} PUBLIC zyn_options ${ROOM_LINKS} PRIVATE ${ROOM_PRIVATE_LINKS})
        if(ROOM_PRECOMPILE)
            target_precompile_headers(${name} PRIVATE ${ROOM_PRECOMPILE})
        endif()
    else()
        add_library(${name} INTERFACE)
        target_link_libraries(${name} INTERFACE zyn_options ${ROOM_LINKS})
    endif()
endfunction()

# zyn_tests(room SOURCES file... LINKS target...): one test program per room, each case a test of its own.
function(zyn_tests room)
    cmake_parse_arguments(TESTS "" "" "SOURCES;LINKS" ${ARGN})
    add_executable(${room}_tests ${TESTS_SOURCES})
    target_include_directories(${room}_tests PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_link_libraries(${room}_tests PRIVATE ${TESTS_LINKS} GTest::gmock GTest::gtest_main)
    gtest_discover_tests(${room}_tests TEST_PREFIX ${room}. DISCOVERY_TIMEOUT 60
        PROPERTIES TIMEOUT 120)
endfunction()

# A source that includes <regex>: GCC 12 under its sanitizers sees uninitialized parts in it (its bug
# 105562).
function(zyn_uses_regex source)
    if(ZYN_SANITIZE AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        set_source_files_properties(${source} PROPERTIES COMPILE_OPTIONS -Wno-maybe-uninitialized)
    endif()
endfunction()
