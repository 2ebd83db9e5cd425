# Animations from other authors: those of the npm package react-useanimations (MIT licence), one version of it, checked
# byte by byte. Without them the tests that need them say that they are skipped.
set(name "react-useanimations")
set(version "2.10.0")
set(sha512
    "33318dbfcbe4bdbeaa12f3010a3f8eea7525a141d2251b9b3001f7b84ec9e0cfa98ede6e779c4369706b420bf919bbc1836f57cef88a5874dfbef9287c312ef9")

set(archive "${FOLDER}/${name}-${version}.tgz")
if(EXISTS "${FOLDER}/package/package.json")
  return()
endif()

find_program(npm npm)
if(NOT npm)
  message(NOTICE "npm is missing: tests of real animations will be skipped")
  return()
endif()
file(MAKE_DIRECTORY "${FOLDER}")
execute_process(
  COMMAND "${npm}" pack --silent "${name}@${version}"
  WORKING_DIRECTORY "${FOLDER}"
  OUTPUT_QUIET ERROR_QUIET
  TIMEOUT 120
  RESULT_VARIABLE failed)
if(failed OR NOT EXISTS "${archive}")
  message(NOTICE "npm could not fetch ${name}: tests of real animations will be skipped")
  return()
endif()
file(SHA512 "${archive}" found)
if(NOT found STREQUAL sha512)
  file(REMOVE "${archive}")
  message(NOTICE "the fetched ${name} is not the one expected: tests of real animations will be skipped")
  return()
endif()
file(ARCHIVE_EXTRACT INPUT "${archive}" DESTINATION "${FOLDER}")
