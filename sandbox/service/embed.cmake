# SPDX-License-Identifier: MIT

# Writes OUTPUT, a C++ file that holds each of FILES as a string.
set(entries "")
foreach(file IN LISTS FILES)
    get_filename_component(name "${file}" NAME)
    file(READ "${file}" text)
    string(APPEND entries "    {\"${name}\", R\"__file__(${text})__file__\"},\n")
endforeach()
file(WRITE "${OUTPUT}" "#include \"embedded.h\"\n\nconst std::map<std::string, const char *> embeddedFiles = {\n${entries}};\n")
