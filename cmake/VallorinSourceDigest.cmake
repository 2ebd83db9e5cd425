# vallorin_add_source_digest(target SYMBOL folder...)
#
# Adds a source to the target that defines SYMBOL as a digest of all sources below the folders (DigestSources.cmake), which are relative to
# the project. Files that programs write say by it which code made them.
function(vallorin_add_source_digest target symbol)
  set(counted "")
  foreach(folder IN LISTS ARGN)
    file(GLOB_RECURSE in_folder CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/${folder}/*.cpp" "${PROJECT_SOURCE_DIR}/${folder}/*.h")
    list(APPEND counted ${in_folder})
  endforeach()
  list(JOIN ARGN "," words)
  set(script "${PROJECT_SOURCE_DIR}/cmake/DigestSources.cmake")
  set(output "${CMAKE_CURRENT_BINARY_DIR}/${symbol}.cpp")
  add_custom_command(
    OUTPUT "${output}"
    COMMAND "${CMAKE_COMMAND}" -D "ROOT=${PROJECT_SOURCE_DIR}" -D "FOLDERS=${words}" -D "OUTPUT=${output}" -D "SYMBOL=${symbol}" -P
            "${script}"
    DEPENDS ${counted} "${script}"
    VERBATIM)
  target_sources(${target} PRIVATE "${output}")
endfunction()
