# cmake -DSOURCE=... -DBIN=... -P FillProgramFolder.cmake
file(MAKE_DIRECTORY ${BIN}/data ${BIN}/Macros ${BIN}/previews)
file(GLOB tables ${SOURCE}/data/*.ini)
foreach(table ${tables})
  get_filename_component(name ${table} NAME)
  if(NOT name STREQUAL "user.ini" OR NOT EXISTS ${BIN}/data/user.ini)
    file(COPY ${table} DESTINATION ${BIN}/data)
  endif()
endforeach()
file(GLOB pages RELATIVE ${SOURCE}/help ${SOURCE}/help/*)
if(pages)
  execute_process(COMMAND ${CMAKE_COMMAND} -E tar cf ${BIN}/Help.zip --format=zip ${pages}
                  WORKING_DIRECTORY ${SOURCE}/help COMMAND_ERROR_IS_FATAL ANY)
endif()
