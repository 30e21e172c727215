# Installs the engine, builds the examples against what was installed, and runs them on a year.
function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE code OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT code EQUAL 0)
    message(FATAL_ERROR "${ARGN}: ${code}\n${output}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE ${WORK})
run(${CMAKE_COMMAND} --install ${BUILD} --component engine --prefix ${WORK}/installed)
run(${CMAKE_COMMAND} -S ${EXAMPLES} -B ${WORK}/build -G Ninja -DCMAKE_PREFIX_PATH=${WORK}/installed
    -DCMAKE_CXX_COMPILER=${COMPILER} -DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER}
    -DCMAKE_CXX_FLAGS=${FLAGS})
run(${CMAKE_COMMAND} --build ${WORK}/build)

set(year ${WORK}/Jahr.kwd)
configure_file(${YEAR} ${year} COPYONLY)
run(${WORK}/build/ChangeCell ${year} Strom 2 vtagstrom 12.5)
run(${WORK}/build/ChangeCell ${year} Strom 2 Monat "M\"rz")
run(${WORK}/build/TablesAsCsv ${year})
foreach(expected "\nStrom\n\"" "\n\"M\"\"rz\"," ",12.5," "\nZStaende\n\"")
  string(FIND "\n${output}" "${expected}" place)
  if(place EQUAL -1)
    message(FATAL_ERROR "Not found: ${expected}\n${output}")
  endif()
endforeach()

execute_process(COMMAND ${WORK}/build/ChangeCell ${year} Strom 99 VTagStrom 1
                RESULT_VARIABLE code ERROR_VARIABLE error)
if(code EQUAL 0 OR NOT error MATCHES "InvalidValue: Strom: there is no such row or column")
  message(FATAL_ERROR "A row that is not there: ${code} ${error}")
endif()
file(GLOB_RECURSE private ${WORK}/installed/*Pager.h ${WORK}/installed/*Version.h)
if(private)
  message(FATAL_ERROR "Private headers are installed: ${private}")
endif()
