# A room is one folder of src/ and one static library, folders inside it included unless they are rooms of their own.
# Its link list is what it may include: the headers of a room can only be found through its library, so an arrow that
# points upward does not build.

# gemforge_room(NAME LIBRARIES...): NAME is the folder below src/, with "/" for a room inside another ("windows/find").
# The library is gemforge_NAME, "/" as "_". Folders with a CMakeLists.txt of their own and program/ are left out.
function(gemforge_room name)
  string(REPLACE "/" "_" target ${name})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  list(FILTER sources EXCLUDE REGEX "/main\\.cpp$|/program/|/film/|/player/")
  file(GLOB_RECURSE inner CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*/CMakeLists.txt)
  foreach(file ${inner})
    get_filename_component(folder ${file} DIRECTORY)
    list(FILTER sources EXCLUDE REGEX "^${folder}/")
  endforeach()
  set(door ${CMAKE_BINARY_DIR}/doors/${target})
  get_filename_component(above ${door}/${name} DIRECTORY)
  file(MAKE_DIRECTORY ${above})
  file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${door}/${name} SYMBOLIC)
  add_library(gemforge_${target} STATIC ${sources})
  set_target_properties(gemforge_${target} PROPERTIES LINKER_LANGUAGE CXX)
  target_include_directories(gemforge_${target} PUBLIC ${door})
  target_link_libraries(gemforge_${target} PUBLIC ${ARGN})
endfunction()

# gemforge_program(TARGET FILE_NAME LIBRARIES...): the folder's main.cpp
function(gemforge_program target file_name)
  add_executable(${target} ${CMAKE_CURRENT_SOURCE_DIR}/main.cpp)
  set_target_properties(${target} PROPERTIES OUTPUT_NAME ${file_name})
  target_link_libraries(${target} PRIVATE ${ARGN})
endfunction()

# gemforge_tests(ROOM LIBRARIES...): the folder's files as the program tests_ROOM, without those of a program of its own
function(gemforge_tests room)
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tests/${room}/*.cpp
                                              ${CMAKE_SOURCE_DIR}/tests/${room}/*.h)
  list(FILTER sources EXCLUDE REGEX "/program/")
  add_executable(tests_${room} ${sources})
  target_include_directories(tests_${room} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  target_link_libraries(tests_${room} PRIVATE ${ARGN} tests_main)
  add_test(NAME ${room} COMMAND ${CMAKE_SOURCE_DIR}/tools/on_display $<TARGET_FILE:tests_${room}>)
  set_tests_properties(${room} PROPERTIES TIMEOUT 600)
endfunction()
