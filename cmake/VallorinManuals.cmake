# Manual pages and the completion of shells: the command line prints them out of its own help texts, so they are made by running it.
# A build for another system cannot run it, and nobody installs a build with sanitizers.

if(CMAKE_CROSSCOMPILING OR NOT UNIX OR VALLORIN_SANITIZE)
  return()
endif()

set(manuals_folder "${CMAKE_BINARY_DIR}/generated/manuals")
file(MAKE_DIRECTORY "${manuals_folder}")
set(manuals "")

# quarvel_printed_page(RESULT words...)
#
# The file RESULT holds what quarvel help prints when it gets these words.
function(quarvel_printed_page result)
  add_custom_command(
    OUTPUT "${result}"
    COMMAND quarvel help ${ARGN} > "${result}"
    DEPENDS quarvel
    VERBATIM)
endfunction()

foreach(command IN ITEMS quarvel normalmap import inspect set render)
  set(page "${manuals_folder}/quarvel-${command}.1")
  if(command STREQUAL "quarvel")
    set(page "${manuals_folder}/quarvel.1")
  endif()
  quarvel_printed_page("${page}" --man ${command})
  list(APPEND manuals "${page}")
endforeach()
quarvel_printed_page("${manuals_folder}/quarvel.bash" --completion bash)
quarvel_printed_page("${manuals_folder}/_quarvel" --completion zsh)
add_custom_target(quarvel_manuals ALL DEPENDS ${manuals} "${manuals_folder}/quarvel.bash" "${manuals_folder}/_quarvel")

install(FILES ${manuals} DESTINATION "${CMAKE_INSTALL_MANDIR}/man1")
install(FILES "${manuals_folder}/quarvel.bash" DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions" RENAME quarvel)
install(FILES "${manuals_folder}/_quarvel" DESTINATION "${CMAKE_INSTALL_DATADIR}/zsh/site-functions")
