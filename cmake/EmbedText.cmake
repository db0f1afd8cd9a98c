# Turns text files into a C++ source with one string for each.
#
#   cmake -DOUTPUT=Pages.cpp -DHEADER=Pages.h -DNAMES=kA,kB -DFILES=a.html,b.css -P EmbedText.cmake

string(REPLACE "," ";" NAMES "${NAMES}")
string(REPLACE "," ";" FILES "${FILES}")
set(source "#include \"${HEADER}\"\n\nnamespace qxmix {\n")
foreach(name file IN ZIP_LISTS NAMES FILES)
  # Bytes, so that no character of a text means anything to CMake or to the compiler.
  file(READ "${file}" bytes HEX)
  string(REGEX REPLACE "(................................)" "\\1\n" bytes "${bytes}")
  string(REGEX REPLACE "([0-9a-f][0-9a-f])" "'\\\\x\\1'," bytes "${bytes}")
  string(APPEND source "\nnamespace {\nconst char ${name}Bytes[] = {\n${bytes}};\n}\n"
         "const std::string_view ${name}(${name}Bytes, sizeof(${name}Bytes));\n")
endforeach()
string(APPEND source "\n}  // namespace qxmix\n")
file(WRITE "${OUTPUT}" "${source}")
