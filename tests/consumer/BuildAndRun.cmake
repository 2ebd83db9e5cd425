# Installs the build into a fresh folder, moves it, builds the plug-in against it, puts the plug-in beside the others, and runs the
# installed program with it.

function(run what)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${what} failed:\n${output}")
  endif()
endfunction()

file(REMOVE_RECURSE "${WORK}")
run("Installing" "${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${WORK}/first")
file(RENAME "${WORK}/first" "${WORK}/moved")

run("Configuring the plug-in" "${CMAKE_COMMAND}" -G Ninja -S "${SOURCE}" -B "${WORK}/build" "-DCMAKE_PREFIX_PATH=${WORK}/moved"
    "-DCMAKE_CXX_COMPILER=${COMPILER}" "-DSANITIZE=${SANITIZE}")
run("Building the plug-in" "${CMAKE_COMMAND}" --build "${WORK}/build")
file(GLOB_RECURSE plugins_folder LIST_DIRECTORIES true "${WORK}/moved/lib*/quarvel/plugins")
file(GLOB libraries "${WORK}/build/*Inverter*")
foreach(library IN LISTS libraries)
  if(NOT IS_DIRECTORY "${library}")
    file(COPY "${library}" DESTINATION "${WORK}/moved/lib/quarvel/plugins/Inverter")
  endif()
endforeach()

file(COPY "${EXAMPLES}/hero.svg" DESTINATION "${WORK}")
run("Running the installed program" "${WORK}/moved/bin/quarvel" normalmap "${WORK}/hero.svg" --size 64)
if(NOT EXISTS "${WORK}/hero_n.png")
  message(FATAL_ERROR "The installed program wrote no normal map.")
endif()
