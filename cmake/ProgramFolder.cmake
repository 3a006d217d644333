# Fills the program's folder: tables (the user's settings only where there are none), help, macros, previews.
set(bin ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
add_custom_target(program_folder ALL
  COMMAND ${CMAKE_COMMAND} -DSOURCE=${CMAKE_SOURCE_DIR} -DBIN=${bin} -P ${CMAKE_SOURCE_DIR}/cmake/FillProgramFolder.cmake
  COMMENT "Filling the program's folder")
