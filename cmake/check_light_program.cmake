# Fails when PROGRAM needs a shared library whose name matches HEAVY: kalvex-cli
# starts its everyday commands without loading Qt or NLopt.
execute_process(COMMAND readelf -d ${PROGRAM} OUTPUT_VARIABLE dynamic RESULT_VARIABLE failed)
if(failed)
  message(FATAL_ERROR "readelf cannot read ${PROGRAM}")
endif()
string(REGEX MATCHALL "Shared library: \\[[^]]*\\]" needed "${dynamic}")
foreach(library ${needed})
  if(library MATCHES "${HEAVY}")
    message(FATAL_ERROR "${PROGRAM} loads ${library}")
  endif()
endforeach()
