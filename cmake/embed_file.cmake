# Called by quill_embed_file: writes OUT, a C++ constant NAME in the namespace of ROOM with the bytes of FILE.
file(READ ${FILE} hex HEX)
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "\\\\x\\1\" \"" literal "${hex}")
string(LENGTH "${hex}" digits)
math(EXPR size "${digits} / 2")
file(WRITE ${OUT} "#include <string_view>\n\nnamespace quill::${ROOM} {\n\n"
  "extern const std::string_view ${NAME};\n"
  "const std::string_view ${NAME}(\"${literal}\", ${size});\n\n}  // namespace quill::${ROOM}\n")
