# Translations: Qt Linguist's .ts files are beside the sources, and the build makes from them the files that programs
# load.

# Languages besides English, the language of the sources.
set(VALLORIN_LANGUAGES de)

# vallorin_add_translations(TARGET NAME SOURCE_FOLDER RESULT_FOLDER RESULTS)
#
# Makes NAME_LANGUAGE.qm in RESULT_FOLDER from NAME_LANGUAGE.ts in SOURCE_FOLDER for every language, with the target
# TARGET; sets the variable RESULTS to their paths.
function(vallorin_add_translations target name source_folder result_folder results)
  set(files "")
  foreach(language IN LISTS VALLORIN_LANGUAGES)
    set(source "${source_folder}/${name}_${language}.ts")
    set(result "${result_folder}/${name}_${language}.qm")
    add_custom_command(
      OUTPUT "${result}"
      COMMAND "${CMAKE_COMMAND}" -E make_directory "${result_folder}"
      COMMAND Qt6::lrelease -silent "${source}" -qm "${result}"
      DEPENDS "${source}"
      VERBATIM)
    list(APPEND files "${result}")
  endforeach()
  add_custom_target(${target} ALL DEPENDS ${files})
  set(${results} ${files} PARENT_SCOPE)
endfunction()

# The texts of the desktop application are those of its own sources and of the host parts that it shows.
set(VALLORIN_STUDIO_TRANSLATIONS "${PROJECT_SOURCE_DIR}/src/Apps/studio/translations")
set(VALLORIN_LUPDATE_ARGUMENTS -silent -no-obsolete -locations none -I "${PROJECT_SOURCE_DIR}/src/Apps" -I "${PROJECT_SOURCE_DIR}/src/Host"
                               -recursive "${PROJECT_SOURCE_DIR}/src/Apps/studio" "${PROJECT_SOURCE_DIR}/src/Host")

# ./dev translate: updates the .ts files from the sources.
set(update_commands "")
foreach(language IN LISTS VALLORIN_LANGUAGES)
  list(APPEND update_commands COMMAND Qt6::lupdate ${VALLORIN_LUPDATE_ARGUMENTS} -target-language ${language} -ts
       "${VALLORIN_STUDIO_TRANSLATIONS}/quarvel-studio_${language}.ts")
endforeach()
add_custom_target(translations_update ${update_commands} VERBATIM)
