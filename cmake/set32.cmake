# How every part of the project is built: the warnings, the sanitizers, and one function for each kind of target.
# A folder is one library or program; its sources are all that lie in it, so a new file needs no entry anywhere.

find_package(Threads REQUIRED)

add_library(set32_options INTERFACE)
target_compile_options(set32_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
target_include_directories(set32_options INTERFACE ${PROJECT_SOURCE_DIR}/include ${PROJECT_SOURCE_DIR}/src)
target_link_libraries(set32_options INTERFACE Threads::Threads)

# Programs, tests and the stage name their headers from the project's folder. What lies in src can't, and so leans on
# none of them.
add_library(set32_outside INTERFACE)
target_include_directories(set32_outside INTERFACE ${PROJECT_SOURCE_DIR})

if(SET32_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
if(SET32_THREAD_SANITIZE)
  add_compile_options(-fsanitize=thread -fno-omit-frame-pointer)
  add_link_options(-fsanitize=thread)
endif()
if(SET32_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
  add_link_options(-fsanitize=address,undefined)
endif()

if(WIN32)
  # Nothing of the compiler's run time is left outside a built file.
  add_link_options(-static -static-libgcc -static-libstdc++)
  if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    # Lengths are cut to whole numbers: a product kept in a register of 80 bits would be cut to another one.
    add_compile_options(-msse2 -mfpmath=sse)
  endif()
  add_compile_options(-ffunction-sections -fdata-sections)
  add_compile_definitions(UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0601)
endif()

# set32_library(NAME FOLDER [LIBRARY...]): all sources of a folder, linked with what it builds on.
function(set32_library name folder)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp)
  if(sources)
    add_library(${name} STATIC ${sources})
    target_link_libraries(${name} PUBLIC set32_options ${ARGN})
  else()
    add_library(${name} INTERFACE)
    target_link_libraries(${name} INTERFACE set32_options ${ARGN})
  endif()
endfunction()

# set32_program(NAME FOLDER [LIBRARY...]): the same as a program in the output folder.
function(set32_program name folder)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp)
  if(sources)
    add_executable(${name} ${sources})
    target_link_libraries(${name} PRIVATE ${ARGN} set32_outside)
  endif()
endfunction()

# set32_tests(FOLDER [LIBRARY...]): one test program of all sources of tests/FOLDER.
function(set32_tests folder)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp)
  if(sources)
    add_executable(${folder}_tests ${sources})
    target_link_libraries(${folder}_tests PRIVATE ${ARGN} set32_outside GTest::gmock_main)
    target_compile_definitions(${folder}_tests PRIVATE
      SET32_TEST_DATA="${PROJECT_SOURCE_DIR}/tests/data" SET32_SAMPLES="${PROJECT_SOURCE_DIR}/samples")
    add_test(NAME ${folder} COMMAND ${folder}_tests)
  endif()
endfunction()
