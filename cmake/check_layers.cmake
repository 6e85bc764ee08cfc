# Checks the layering of the sources under ROOT (a folder laid out like src/):
# no Qt header outside ui/, and each core room includes only rooms below it.
# Run as `cmake -DROOT=<folder> -P check_layers.cmake`; fails with the list of
# offending lines.

# The ladder, from the bottom: the drawing and dialog interfaces, then the
# session record and its rules, then the subjects built on them.
set(rank_platform 0)
set(rank_model 1)
set(rank_files 2)
set(rank_design 3)
set(rank_chart 4)
set(rank_analysis 5)
set(rank_matching 6)
set(rank_print 7)
# A side room: the instruments' protocols stand on the session record alone
# and only the windows and the command line use them.
set(rank_device 8)
set(allowed_device platform model)

get_filename_component(ROOT "${ROOT}" ABSOLUTE)
file(GLOB_RECURSE sources RELATIVE "${ROOT}" "${ROOT}/*.h" "${ROOT}/*.cpp")
set(problems "")
foreach(source IN LISTS sources)
  string(REGEX MATCH "^[^/]+" room "${source}")
  if(room STREQUAL "ui")
    continue()
  endif()
  file(STRINGS "${ROOT}/${source}" includes REGEX "^[ \t]*#[ \t]*include")
  foreach(line IN LISTS includes)
    if(line MATCHES "<Q[A-Za-z]*>|<Qt")
      list(APPEND problems "${source}: Qt outside ui/: ${line}")
    elseif(line MATCHES "\"([a-z_]+)/" AND DEFINED rank_${room})
      set(target "${CMAKE_MATCH_1}")
      if(target STREQUAL "ui")
        list(APPEND problems "${source}: the core includes ui/: ${line}")
      elseif(DEFINED rank_${target} AND rank_${target} GREATER rank_${room})
        list(APPEND problems "${source}: ${room}/ includes the higher room ${target}/: ${line}")
      elseif(DEFINED allowed_${room} AND NOT target STREQUAL room)
        list(FIND allowed_${room} "${target}" allowed)
        if(allowed EQUAL -1)
          string(REPLACE ";" " and " rooms "${allowed_${room}}")
          list(APPEND problems "${source}: ${room}/ may include only ${rooms}: ${line}")
        endif()
      endif()
    endif()
  endforeach()
endforeach()

if(problems)
  list(JOIN problems "\n  " listing)
  message(FATAL_ERROR "Layering broken:\n  ${listing}")
endif()
