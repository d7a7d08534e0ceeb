# Writes a C++ source that holds files as bytes. Run with
#   cmake -DOUTPUT=file.cpp -DFOLDER=dir -DFILES=a|b|c -P EmbedFiles.cmake
string(REPLACE "|" ";" files "${FILES}")
set(arrays "")
set(table "")
set(index 0)
foreach(file IN LISTS files)
    file(READ "${FOLDER}/${file}" hex HEX)
    string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${hex}")
    string(APPEND arrays "const unsigned char file${index}[] = {${bytes}};\n")
    string(APPEND table "        {\"${file}\", reinterpret_cast<const char*>(file${index}), sizeof(file${index})},\n")
    math(EXPR index "${index} + 1")
endforeach()
file(WRITE "${OUTPUT}.new" "// Made by EmbedFiles.cmake.
#include \"EmbeddedFiles.h\"

namespace TLGateway
{

namespace
{

${arrays}
} // namespace

const std::vector<EmbeddedFile>& EmbeddedFiles()
{
    static const std::vector<EmbeddedFile> files = {
${table}    };
    return files;
}

} // namespace TLGateway
")
file(RENAME "${OUTPUT}.new" "${OUTPUT}")
