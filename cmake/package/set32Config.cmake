# find_package(set32) for hosts:
#
#   set32::headers  the headers alone, for a host that loads set32.dll by name
#   set32::set32    set32.dll by its import library, with the headers
#   set32::dib      reading, writing and emptying the preview picture (built by MinGW's g++ 12), with the headers
get_filename_component(set32_folder "${CMAKE_CURRENT_LIST_DIR}/../../.." ABSOLUTE)

if(NOT TARGET set32::headers)
  add_library(set32::headers INTERFACE IMPORTED)
  target_include_directories(set32::headers INTERFACE ${set32_folder}/include)
  target_compile_features(set32::headers INTERFACE cxx_std_20)

  add_library(set32::set32 SHARED IMPORTED)
  set_target_properties(set32::set32 PROPERTIES
    IMPORTED_LOCATION ${set32_folder}/bin/set32.dll
    IMPORTED_IMPLIB ${set32_folder}/lib/set32.dll.a)
  target_link_libraries(set32::set32 INTERFACE set32::headers)

  add_library(set32::dib STATIC IMPORTED)
  set_target_properties(set32::dib PROPERTIES IMPORTED_LOCATION ${set32_folder}/lib/libset32_dib.a)
  target_link_libraries(set32::dib INTERFACE set32::headers
    ${set32_folder}/lib/libset32_win32.a ${set32_folder}/lib/libset32_platform.a gdi32)
endif()

unset(set32_folder)
