# The floors of src/ and the rule between them: a file includes headers of its
# own folder or of a folder on a lower floor, never of a higher one.
#
#   support -> base -> ini, settings, cache, commission, margin -> core -> api -> host
#
# The five engine folders share one floor; among them the includes must not
# run in a circle (ini -> commission -> ini). A forwarding header (a header
# left at an old path that only includes the new one; its first comment line
# says "Forwarding header") is allowed to point anywhere, but no file under
# src/ may include one.
#
# Run as a script:  cmake -DZDL_SOURCE_DIR=<source tree> -P cmake/CheckLayers.cmake
# It prints every offending include and fails when there is any.

cmake_policy(VERSION 3.25)

if(NOT ZDL_SOURCE_DIR)
  get_filename_component(ZDL_SOURCE_DIR "${CMAKE_CURRENT_LIST_DIR}/.." ABSOLUTE)
endif()
set(src "${ZDL_SOURCE_DIR}/src")

set(floor_support 0)
set(floor_base 1)
set(floor_ini 2)
set(floor_settings 2)
set(floor_cache 2)
set(floor_commission 2)
set(floor_margin 2)
set(floor_core 3)
set(floor_api 4)
set(floor_host 5)
set(engine_dirs ini settings cache commission margin)

file(GLOB_RECURSE files RELATIVE "${src}" "${src}/*.h" "${src}/*.cpp" "${src}/*.def")

# Forwarding headers first: they are exempt, and including them is an error.
set(forwarding)
foreach(rel IN LISTS files)
  if(rel MATCHES "\\.h$")
    file(STRINGS "${src}/${rel}" marker LIMIT_COUNT 3 REGEX "^// Forwarding header")
    if(marker)
      list(APPEND forwarding "${rel}")
    endif()
  endif()
endforeach()

set(errors)
set(edges)
foreach(rel IN LISTS files)
  if(rel IN_LIST forwarding)
    continue()
  endif()
  string(REGEX MATCH "^[^/]+" own "${rel}")
  if(NOT DEFINED floor_${own})
    list(APPEND errors "${rel}: folder '${own}' has no floor; add it to cmake/CheckLayers.cmake")
    continue()
  endif()
  file(STRINGS "${src}/${rel}" lines REGEX "^[ \t]*#[ \t]*include[ \t]+\"[^\"]+\"")
  foreach(line IN LISTS lines)
    string(REGEX REPLACE "^[ \t]*#[ \t]*include[ \t]+\"([^\"]+)\".*$" "\\1" target "${line}")
    if(target IN_LIST forwarding)
      list(APPEND errors "${rel}: includes the forwarding header ${target}")
    endif()
    if(NOT target MATCHES "^([^/]+)/")
      continue()
    endif()
    set(dir "${CMAKE_MATCH_1}")
    if(dir STREQUAL own OR NOT DEFINED floor_${dir})
      continue()
    endif()
    if(floor_${dir} GREATER floor_${own})
      list(APPEND errors "${rel}: includes ${target}, a floor above ${own}/")
    elseif(floor_${dir} EQUAL floor_${own})
      list(APPEND edges "${own}>${dir}")
    endif()
  endforeach()
endforeach()

# Circles among the engine folders: a folder that reaches itself again.
list(REMOVE_DUPLICATES edges)
foreach(start IN LISTS engine_dirs)
  set(reached)
  set(frontier ${start})
  while(frontier)
    set(next)
    foreach(from IN LISTS frontier)
      foreach(edge IN LISTS edges)
        if(edge MATCHES "^${from}>(.+)$")
          set(to "${CMAKE_MATCH_1}")
          if(NOT to IN_LIST reached)
            list(APPEND reached ${to})
            list(APPEND next ${to})
          endif()
        endif()
      endforeach()
    endforeach()
    set(frontier ${next})
  endwhile()
  if(start IN_LIST reached)
    list(APPEND errors "${start}/: its includes lead back to ${start}/ through the folders of its floor")
  endif()
endforeach()

if(errors)
  list(LENGTH errors count)
  string(REPLACE ";" "\n  " text "${errors}")
  message(FATAL_ERROR "Layer check: ${count} offending include(s):\n  ${text}")
endif()
list(LENGTH files count)
message(STATUS "Layer check: ${count} files, every include points down")
