# cmake -D ROOT=folder -D FOLDERS=a,b -D OUTPUT=file.cpp -D SYMBOL=kName -P DigestSources.cmake
#
# Writes a C++ source that defines SYMBOL as the SHA-256 of all sources below the folders: equal for equal sources, on every machine
# and wherever the tree lies.
string(REPLACE "," ";" FOLDERS "${FOLDERS}")
set(digests "")
foreach(folder IN LISTS FOLDERS)
  file(GLOB_RECURSE sources RELATIVE "${ROOT}" "${ROOT}/${folder}/*.cpp" "${ROOT}/${folder}/*.h")
  list(SORT sources)
  foreach(source IN LISTS sources)
    file(SHA256 "${ROOT}/${source}" digest)
    string(APPEND digests "${digest} ${source}\n")
  endforeach()
endforeach()
string(SHA256 all "${digests}")
file(CONFIGURE OUTPUT "${OUTPUT}" CONTENT "extern const char* const ${SYMBOL};\nconst char* const ${SYMBOL} = \"${all}\";\n")
