# Makes a source file of the files of a new package: each with its path in it, and its bytes. Run as a script, with OUTPUT
# and FILES, a list of "PATH=FILE".
set(text "#include \"tools/PackageCheck/StarterFiles.h\"\n\nnamespace packagecheck {\n\nnamespace {\n\n")
set(entries "")
set(number 0)
foreach(entry IN LISTS FILES)
  string(REGEX MATCH "^([^=]*)=(.*)$" matched "${entry}")
  set(path ${CMAKE_MATCH_1})
  file(READ ${CMAKE_MATCH_2} bytes HEX)
  string(REGEX REPLACE "(..)" "'\\\\x\\1'," bytes "${bytes}")
  string(APPEND text "constexpr char starterFile${number}[] = {${bytes}};\n")
  string(APPEND entries "    {\"${path}\", std::string_view(starterFile${number}, sizeof(starterFile${number}))},\n")
  math(EXPR number "${number} + 1")
endforeach()
string(APPEND text "\nconstexpr StarterFile starterFiles[] = {\n${entries}};\n\n}  // namespace\n\n"
                   "std::span<const StarterFile> StarterFiles() {\n    return starterFiles;\n}\n\n}  // namespace packagecheck\n")
file(WRITE ${OUTPUT} "${text}")
