# GoogleTest for Windows programs, compiled from the sources that the package googletest lays down: a cross compiler
# finds no library of the machine's own.
find_path(SET32_GOOGLETEST googlemock/src/gmock-all.cc PATHS /usr/src/googletest NO_CMAKE_FIND_ROOT_PATH)
if(NOT SET32_GOOGLETEST)
  message(FATAL_ERROR "The sources of GoogleTest are missing: install the package googletest, or set SET32_GOOGLETEST.")
endif()

add_library(gmock_for_windows STATIC ${SET32_GOOGLETEST}/googletest/src/gtest-all.cc
                                     ${SET32_GOOGLETEST}/googlemock/src/gmock-all.cc)
target_include_directories(gmock_for_windows
  SYSTEM PUBLIC ${SET32_GOOGLETEST}/googletest/include ${SET32_GOOGLETEST}/googlemock/include
  PRIVATE ${SET32_GOOGLETEST}/googletest ${SET32_GOOGLETEST}/googlemock)
add_library(gmock_main_for_windows STATIC ${SET32_GOOGLETEST}/googlemock/src/gmock_main.cc)
target_link_libraries(gmock_main_for_windows PUBLIC gmock_for_windows)

add_library(GTest::gmock ALIAS gmock_for_windows)
add_library(GTest::gmock_main ALIAS gmock_main_for_windows)
