# A room is one folder of src/ and one static library. Its link list is what it may include: the headers of a
# room can only be found through its library, so an arrow that points upward does not build.

# gemforge_room(NAME LIBRARIES...)
function(gemforge_room name)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
  set(door ${CMAKE_BINARY_DIR}/doors/${name})
  file(MAKE_DIRECTORY ${door})
  file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${door}/${name} SYMBOLIC)
  add_library(gemforge_${name} STATIC ${sources})
  set_target_properties(gemforge_${name} PROPERTIES LINKER_LANGUAGE CXX)
  target_include_directories(gemforge_${name} PUBLIC ${door})
  target_link_libraries(gemforge_${name} PUBLIC ${ARGN})
endfunction()

# gemforge_program(TARGET FILE_NAME LIBRARIES...): the folder's main.cpp
function(gemforge_program target file_name)
  if(NOT EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/main.cpp)
    return()
  endif()
  add_executable(${target} ${CMAKE_CURRENT_SOURCE_DIR}/main.cpp)
  set_target_properties(${target} PROPERTIES OUTPUT_NAME ${file_name})
  target_link_libraries(${target} PRIVATE ${ARGN})
endfunction()

# gemforge_tests(ROOM LIBRARIES...): the folder's files as the program tests_ROOM
function(gemforge_tests room)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tests/${room}/*.cpp ${CMAKE_SOURCE_DIR}/tests/${room}/*.h)
  if(NOT sources)
    return()
  endif()
  add_executable(tests_${room} ${sources})
  target_include_directories(tests_${room} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  target_compile_definitions(tests_${room} PRIVATE TEST_DATA="${CMAKE_SOURCE_DIR}/tests/data"
                                                   PROJECT_FOLDER="${CMAKE_SOURCE_DIR}")
  target_link_libraries(tests_${room} PRIVATE gemforge_${room} ${ARGN} tests_main)
  add_test(NAME ${room} COMMAND tests_${room})
  set_tests_properties(${room} PROPERTIES TIMEOUT 600)
endfunction()
