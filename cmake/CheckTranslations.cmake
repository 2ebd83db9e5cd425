# Fails when a text has no finished translation, and names it: cmake -DLUPDATE= -DARGUMENTS= -DSOURCE= -DWORK= -P CheckTranslations.cmake
#
# Works on a copy, so that running the tests changes no source.

get_filename_component(name "${SOURCE}" NAME)
file(MAKE_DIRECTORY "${WORK}")
set(copy "${WORK}/${name}")
file(COPY_FILE "${SOURCE}" "${copy}")
execute_process(COMMAND "${LUPDATE}" ${ARGUMENTS} -ts "${copy}" RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "lupdate failed:\n${output}")
endif()

file(READ "${copy}" text)
if(NOT text MATCHES "<message")
  message(FATAL_ERROR "${copy} contains no texts.")
endif()
string(REPLACE "&quot;" "\"" text "${text}")
string(REPLACE "&apos;" "'" text "${text}")
string(REPLACE "&amp;" "&" text "${text}")
# Avoids semicolons and brackets, which split and join CMake's lists.
string(REPLACE ";" "," text "${text}")
string(REPLACE "[" "(" text "${text}")
string(REPLACE "]" ")" text "${text}")
string(REGEX MATCHALL "<name>[^<]*</name>|<source>[^<]*</source>|type=\"unfinished\"" words "${text}")
set(missing "")
foreach(word IN LISTS words)
  if(word MATCHES "^<name>(.*)</name>$")
    set(context "${CMAKE_MATCH_1}")
  elseif(word MATCHES "^<source>(.*)</source>$")
    set(source_text "${CMAKE_MATCH_1}")
  else()
    string(APPEND missing "  ${context}: ${source_text}\n")
  endif()
endforeach()
if(missing)
  message(
    FATAL_ERROR
      "Texts without a finished translation in ${name}:\n${missing}"
      "Run ./dev translate, then write the translation of each into ${SOURCE}, in Qt Linguist or by hand (in place of "
      "<translation type=\"unfinished\"></translation>).")
endif()
