# SPDX-License-Identifier: MIT

# Writes OUTPUT, a C++ file that holds each of TEMPLATES as a string.
set(entries "")
foreach(file IN LISTS TEMPLATES)
    get_filename_component(name "${file}" NAME)
    file(READ "${file}" text)
    string(APPEND entries "    {\"${name}\", R\"__template__(${text})__template__\"},\n")
endforeach()
file(WRITE "${OUTPUT}" "#include \"embedded.h\"\n\nconst std::vector<EmbeddedTemplate> embeddedTemplates = {\n${entries}};\n")
